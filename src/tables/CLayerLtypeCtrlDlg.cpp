#include "CLayerLtypeCtrlDlg.h"

#include <cmath>

#include "app/PropLayerLtypeCmdExecuted.h"
#include "app/VELD.h"
#include "res/StringIds.h"
#include "shell/ResString.h"
#include "ulo/SourceEvent.h"
#include "ulo/ctrl/MessageBox.h"
#include "veld/Data.h"

namespace veld5 {

CLayerLtypeCtrlDlg::CLayerLtypeCtrlDlg(CVELD* cad)
    : cad_(cad),
      data_(cad->GetData()),
      layers_(veld::GetMainLayerTable(data_)),
      ltypes_(veld::GetMainLtypeTable(data_)),
      curLayer_(::GetCurLayer(cad)),
      curLtype_(::GetCurLtype(cad)),
      startScale_(GetLtypeScale(cad)),
      editedScale_(startScale_) {
    veld::CData::CLayerIterator layers(data_, true);
    while (veld::CLayer* layer = layers.GetNext())
        layerMementos_.Take(layer);
    veld::CData::CLtypeIterator ltypes(data_, true, false);
    while (veld::CLtype* ltype = ltypes.GetNext())
        ltypeMementos_.Take(ltype);
}

CLayerLtypeCtrlDlg::~CLayerLtypeCtrlDlg() = default;

void CLayerLtypeCtrlDlg::Warn(StringId text) const {
    if (!notifier_)
        return;
    const ulo::WString caption = LoadResString(ids::kWarning);
    notifier_->ShowMessage(caption.c_str(), LoadResString(text).c_str(), ulo::kWarningFlags);
}

// Layer selection

void CLayerLtypeCtrlDlg::ClearSelLayers() {
    selLayers_.RemoveAll();
    selected_.clear();
}

void CLayerLtypeCtrlDlg::AddSelLayer(veld::CLayer* layer) {
    if (layer && selected_.insert(layer).second)
        selLayers_.Add(layer);
}

void CLayerLtypeCtrlDlg::RemoveSelLayer(veld::CLayer* layer) {
    if (selected_.erase(layer))
        selLayers_.Remove(layer);
}

unsigned CLayerLtypeCtrlDlg::GetNoSelLayers() const {
    return selLayers_.GetNoElems();
}

veld::CLayer* CLayerLtypeCtrlDlg::GetSelLayerNo(unsigned index) const {
    return static_cast<veld::CLayer*>(selLayers_.GetObjectNo(index));
}

// Layers

bool CLayerLtypeCtrlDlg::MakeSelLayerCurrent() {
    veld::CLayer* layer = GetSelLayerNo(0);
    if (!layer)
        return false;
    if (layer->IsFrozen() || layer->IsXRef() || !layer->CanBeCurrent()) {
        Warn(ids::kLayerNotCurrent);
        return false;
    }
    curLayer_ = layer;
    return true;
}

veld::CLayer* CLayerLtypeCtrlDlg::NewLayer() {
    const ulo::WString name = layers_->GetProgName(L"Layer");
    const veld::CLayer* model = GetNoSelLayers() == 1 ? GetSelLayerNo(0) : curLayer_;
    const veld::CObjectFactory* factory = data_->GetObjectFactory();
    veld::CLayer* layer = model ? factory->CreateLayer(name, model->GetLtype(), model->GetColor(),
                                                       model->GetLineWidth(), model->GetFlags(), 0)
                                // A drawing always has a current layer; should it not, layer 0's
                                // defaults stand in.
                                : factory->CreateLayer(name, ltypes_->GetLtypeContinuous(), 7,
                                                       veld::kLineWidthDefault, 0, 0);
    layers_->Add(layer);
    newLayers_.Add(layer);
    layer->SubReference();
    return layer;
}

void CLayerLtypeCtrlDlg::DeleteSelLayers() {
    const unsigned count = GetNoSelLayers();
    if (count == 0) {
        Warn(ids::kSelectLayerToErase);
        return;
    }
    // What the drawing uses, gathered once rather than walked for every
    // selected layer (a selection may hold the whole table).
    const veld::CData::CItemUsage usage(*data_);
    std::unordered_set<const veld::CLayer*> droppedNew;
    unsigned refused = 0;
    for (unsigned i = 0; i < count; ++i) {
        veld::CLayer* layer = GetSelLayerNo(i);
        const bool mayGo = layers_->Contains(layer) && !usage.IsUsed(layer) && !layer->IsLayer0() &&
                           !layer->IsXRef() && layer != curLayer_;
        if (!mayGo) {
            ++refused;
            continue;
        }
        // Every layer of the drawing at the start has a memento: one without
        // is among the new layers.
        if (layerMementos_.Find(layer))
            deletedLayers_.Add(layer);
        else
            droppedNew.insert(layer);
        layers_->Remove(layer);
    }
    if (!droppedNew.empty()) {
        veld::CHandleObjectVectorCollection kept;
        kept.Reserve(newLayers_.GetNoElems());
        for (unsigned i = 0; i < newLayers_.GetNoElems(); ++i) {
            auto* layer = static_cast<veld::CLayer*>(newLayers_.GetObjectNo(i));
            if (!droppedNew.contains(layer))
                kept.Add(layer);
        }
        newLayers_ = kept;
    }
    ClearSelLayers();
    if (count == 1 && refused == 1)
        Warn(ids::kLayerNotDeleted);
}

bool CLayerLtypeCtrlDlg::IsLayerNameChanged(const ulo::WString& name) const {
    if (GetNoSelLayers() != 1)
        return false;
    const ulo::IMemento* memento = layerMementos_.Find(GetSelLayerNo(0));
    if (!memento)
        return true;
    const ulo::WString* before = veld::CLayer::GetMementoName(memento);
    return !before || *before != name;
}

// Line types

bool CLayerLtypeCtrlDlg::CanDeleteLtype(const veld::CLtype* ltype) const {
    return ltype && !ltype->IsByBlock() && !ltype->IsByLayer() && !ltype->IsContinuous() &&
           !ltype->IsXRef();
}

bool CLayerLtypeCtrlDlg::MakeSelLtypeCurrent() {
    if (!selLtype_) {
        Warn(ids::kSelectLtypeToCurrent);
        return false;
    }
    if (selLtype_->IsXRef()) {
        Warn(ids::kLtypeXRefNotCurrent);
        return false;
    }
    curLtype_ = selLtype_;
    return true;
}

bool CLayerLtypeCtrlDlg::DeleteSelLtype() {
    veld::CLtype* ltype = selLtype_;
    if (!ltype) {
        Warn(ids::kSelectLtypeToErase);
        return false;
    }
    if (!ltypes_->Contains(ltype) || ltype->IsItemUsed() || !CanDeleteLtype(ltype) ||
        ltype == curLtype_) {
        Warn(ids::kLtypeNotDeleted);
        return false;
    }
    if (!newLtypes_.Remove(ltype))
        deletedLtypes_.Add(ltype);
    ltypes_->Remove(ltype);
    selLtype_ = nullptr;
    return true;
}

void CLayerLtypeCtrlDlg::AddLtype(veld::CLtype* ltype) {
    if (!ltype)
        return;
    if (veld::CLtype* existing = ltypes_->Find(ltype->GetName())) {
        if (existing != ltype)
            existing->Copy(*ltype);
        return;
    }
    ltypes_->Add(ltype);
    newLtypes_.Add(ltype);
}

// End of the visit

void CLayerLtypeCtrlDlg::Rollback() {
    if (ended_)
        return;
    ended_ = true;
    ulo::CSourceEventBracket bracket(data_->GetDataTables()->GetDataTablesSourceEvent());

    for (unsigned i = 0; i < newLayers_.GetNoElems(); ++i)
        layers_->Remove(static_cast<veld::CLayer*>(newLayers_.GetObjectNo(i)));
    for (unsigned i = 0; i < newLtypes_.GetNoElems(); ++i)
        ltypes_->Remove(static_cast<veld::CLtype*>(newLtypes_.GetObjectNo(i)));
    for (unsigned i = 0; i < deletedLtypes_.GetNoElems(); ++i)
        ltypes_->Add(static_cast<veld::CLtype*>(deletedLtypes_.GetObjectNo(i)));
    for (unsigned i = 0; i < deletedLayers_.GetNoElems(); ++i)
        layers_->Add(static_cast<veld::CLayer*>(deletedLayers_.GetObjectNo(i)));

    const auto restore = [](ulo::IMementable* item, ulo::IMemento* memento) {
        item->SetMemento(memento);
        memento->SubReference();
    };
    layerMementos_.Drain(restore);
    ltypeMementos_.Drain(restore);
    Finish();
}

void CLayerLtypeCtrlDlg::Commit() {
    if (ended_)
        return;
    ended_ = true;
    ulo::CSourceEventBracket bracket(data_->GetDataTables()->GetDataTablesSourceEvent());

    // A deleted item goes into the command as it was when the dialog opened.
    for (unsigned i = 0; i < deletedLayers_.GetNoElems(); ++i) {
        auto* layer = static_cast<veld::CLayer*>(deletedLayers_.GetObjectNo(i));
        if (ulo::IMemento* memento = layerMementos_.Detach(layer)) {
            layer->SetMemento(memento);
            memento->SubReference();
        }
    }
    for (unsigned i = 0; i < deletedLtypes_.GetNoElems(); ++i) {
        auto* ltype = static_cast<veld::CLtype*>(deletedLtypes_.GetObjectNo(i));
        if (ulo::IMemento* memento = ltypeMementos_.Detach(ltype)) {
            ltype->SetMemento(memento);
            memento->SubReference();
        }
    }

    // Neither a non-positive nor a non-finite scale ever reaches the drawing.
    if (!veld::stored::kLtypeScale.Holds(editedScale_))
        editedScale_ = startScale_;

    // Made while the host still has the previous current layer and line type.
    auto* command =
        new CPropLayerLtypeCmdExecuted(cad_, curLayer_, curLtype_, startScale_, newLayers_,
                                       deletedLayers_, newLtypes_, deletedLtypes_);
    SetCurLayer(cad_, curLayer_);
    layerMementos_.Drain([command](veld::CLayer* layer, ulo::IMemento* memento) {
        if (layer->HasChanged(memento))
            command->Changed(layer, memento);
        else
            memento->SubReference();
    });
    SetCurLtype(cad_, curLtype_);
    if (editedScale_ != startScale_)
        SetLtypeScale(cad_, editedScale_);
    ltypeMementos_.Drain([command](veld::CLtype* ltype, ulo::IMemento* memento) {
        if (ltype->HasChanged(memento))
            command->Changed(ltype, memento);
        else
            memento->SubReference();
    });
    cad_->AddChange(command);
    Finish();
}

void CLayerLtypeCtrlDlg::Finish() {
    ClearSelLayers();
    selLtype_ = nullptr;
    newLayers_.RemoveAll();
    deletedLayers_.RemoveAll();
    newLtypes_.RemoveAll();
    deletedLtypes_.RemoveAll();
}

}  // namespace veld5
