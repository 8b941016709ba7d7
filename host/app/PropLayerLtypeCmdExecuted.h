#pragma once
// CPropLayerLtypeCmdExecuted: the undo command of the layer and line type
// tables. It reverses and repeats the current layer and line type, the global
// line type scale, the layers and line types created and deleted, and the
// changes made to the others (one memento each).
//
// Build it while the CAD instance still has the previous current layer and
// line type: they are read at construction. The scale passed is the one to
// return to; undo and redo exchange it with the CAD instance's scale, so the
// new scale may be set before or after construction.
#include <vector>

#include "ICADCmdExecuted.h"
#include "ulo/Memento.h"
#include "ulo/RefCounter.h"
#include "veld/HandleObjectVectorCollection.h"
#include "veld/Layer.h"

class CPropLayerLtypeCmdExecuted : public ICADCmdExecuted {
public:
    CPropLayerLtypeCmdExecuted(CVELD* cad, veld::CLayer* newCurLayer, veld::CLtype* newCurLtype,
                               double scaleBefore,
                               const veld::CHandleObjectVectorCollection& createdLayers,
                               const veld::CHandleObjectVectorCollection& deletedLayers,
                               const veld::CHandleObjectVectorCollection& createdLtypes,
                               const veld::CHandleObjectVectorCollection& deletedLtypes);

    /// Records a changed layer (line type) with its memento from before the
    /// change; the command takes over the caller's reference to @p before.
    void Changed(veld::CLayer* layer, ulo::IMemento* before);
    void Changed(veld::CLtype* ltype, ulo::IMemento* before);

    unsigned GetMemSize() override;

protected:
    void DoCADUndo() override;
    void DoCADRedo() override;

private:
    void Apply(bool undo);

    ulo::RefPtr<veld::CLayer> layerBefore_, layerAfter_;
    ulo::RefPtr<veld::CLtype> ltypeBefore_, ltypeAfter_;
    double otherScale_;
    veld::CHandleObjectVectorCollection createdLayers_, deletedLayers_;
    veld::CHandleObjectVectorCollection createdLtypes_, deletedLtypes_;
    veld::CHandleObjectVectorCollection modifiedLayers_, modifiedLtypes_;
    std::vector<ulo::RefPtr<ulo::IMemento>> layerMementos_, ltypeMementos_;
};
