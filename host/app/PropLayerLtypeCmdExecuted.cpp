#include "PropLayerLtypeCmdExecuted.h"

#include <utility>

#include "VELD.h"
#include "ulo/Memento.h"

using ulo::SwapMemento;

CPropLayerLtypeCmdExecuted::CPropLayerLtypeCmdExecuted(
    CVELD* cad, veld::CLayer* newCurLayer, veld::CLtype* newCurLtype, double scaleBefore,
    const veld::CHandleObjectVectorCollection& createdLayers,
    const veld::CHandleObjectVectorCollection& deletedLayers,
    const veld::CHandleObjectVectorCollection& createdLtypes,
    const veld::CHandleObjectVectorCollection& deletedLtypes)
    : ICADCmdExecuted(cad),
      layerBefore_(ulo::RefPtr<veld::CLayer>::Share(GetCurLayer(cad))),
      layerAfter_(ulo::RefPtr<veld::CLayer>::Share(newCurLayer)),
      ltypeBefore_(ulo::RefPtr<veld::CLtype>::Share(GetCurLtype(cad))),
      ltypeAfter_(ulo::RefPtr<veld::CLtype>::Share(newCurLtype)),
      otherScale_(scaleBefore),
      createdLayers_(createdLayers),
      deletedLayers_(deletedLayers),
      createdLtypes_(createdLtypes),
      deletedLtypes_(deletedLtypes) {}

void CPropLayerLtypeCmdExecuted::Changed(veld::CLayer* layer, ulo::IMemento* before) {
    modifiedLayers_.Add(layer);
    layerMementos_.push_back(ulo::RefPtr<ulo::IMemento>::Adopt(before));
}

void CPropLayerLtypeCmdExecuted::Changed(veld::CLtype* ltype, ulo::IMemento* before) {
    modifiedLtypes_.Add(ltype);
    ltypeMementos_.push_back(ulo::RefPtr<ulo::IMemento>::Adopt(before));
}

unsigned CPropLayerLtypeCmdExecuted::GetMemSize() {
    unsigned size = sizeof(*this);
    for (const auto& m : layerMementos_)
        size += m ? m->GetMemSize() : 0;
    for (const auto& m : ltypeMementos_)
        size += m ? m->GetMemSize() : 0;
    const unsigned items = createdLayers_.GetNoElems() + deletedLayers_.GetNoElems() +
                           createdLtypes_.GetNoElems() + deletedLtypes_.GetNoElems();
    return size + items * static_cast<unsigned>(sizeof(void*));
}

void CPropLayerLtypeCmdExecuted::DoCADUndo() {
    Apply(true);
}

void CPropLayerLtypeCmdExecuted::DoCADRedo() {
    Apply(false);
}

void CPropLayerLtypeCmdExecuted::Apply(bool undo) {
    CVELD* cad = GetVELD();
    veld::CData* data = cad->GetData();
    ulo::CSourceEventBracket bracket(data->GetDataTablesSourceEvent());

    if (veld::CLayer* layer = (undo ? layerBefore_ : layerAfter_).get())
        SetCurLayer(cad, layer);
    if (veld::CLtype* ltype = (undo ? ltypeBefore_ : ltypeAfter_).get())
        SetCurLtype(cad, ltype);
    const double scale = GetLtypeScale(cad);
    SetLtypeScale(cad, otherScale_);
    otherScale_ = scale;

    const auto& addLayers = undo ? deletedLayers_ : createdLayers_;
    const auto& removeLayers = undo ? createdLayers_ : deletedLayers_;
    const auto& addLtypes = undo ? deletedLtypes_ : createdLtypes_;
    const auto& removeLtypes = undo ? createdLtypes_ : deletedLtypes_;
    veld::CLayerTable* layers = veld::GetMainLayerTable(data);
    veld::CLtypeTable* ltypes = veld::GetMainLtypeTable(data);
    // Line types go in before the layers that may use them and leave after.
    for (unsigned i = 0; i < addLtypes.GetNoElems(); ++i)
        ltypes->Add(static_cast<veld::CLtype*>(addLtypes.GetObjectNo(i)));
    for (unsigned i = 0; i < addLayers.GetNoElems(); ++i)
        layers->Add(static_cast<veld::CLayer*>(addLayers.GetObjectNo(i)));
    for (unsigned i = 0; i < removeLayers.GetNoElems(); ++i)
        layers->Remove(static_cast<veld::CLayer*>(removeLayers.GetObjectNo(i)));
    for (unsigned i = 0; i < removeLtypes.GetNoElems(); ++i)
        ltypes->Remove(static_cast<veld::CLtype*>(removeLtypes.GetObjectNo(i)));

    for (unsigned i = 0; i < modifiedLtypes_.GetNoElems(); ++i)
        SwapMemento(*static_cast<veld::CLtype*>(modifiedLtypes_.GetObjectNo(i)), ltypeMementos_[i]);
    for (unsigned i = 0; i < modifiedLayers_.GetNoElems(); ++i)
        SwapMemento(*static_cast<veld::CLayer*>(modifiedLayers_.GetObjectNo(i)), layerMementos_[i]);
}
