#include "Data.h"

namespace veld {

CData::CData() : ltypes_(this), layers_(this), styles_(this) {
    const CLtypeComplexDashSeq none;
    for (const wchar_t* name : {L"ByBlock", L"ByLayer", L"Continuous"}) {
        CLtype* l = factory_.CreateLtype(
            name, name == std::wstring(L"Continuous") ? L"Solid line" : L"", none, 0, 0);
        ltypes_.Add(l);
        l->SubReference();
    }
    CLayer* zero =
        factory_.CreateLayer(L"0", ltypes_.GetLtypeContinuous(), 7, kLineWidthDefault, 0, 0);
    layers_.Add(zero);
    zero->SubReference();
    CStyle* standard = factory_.CreateStyle(L"STANDARD", CFontTable::GetInstance().Find(L"txt"),
                                            0.0, 1.0, 0.0, 2.5, 0, 0);
    styles_.Add(standard);
    standard->SubReference();
    drawings_.AddDrawing(0, L"CAD1", true, false, false, true);
    drawings_.AddDrawing(1, L"Topog1", true, false, false, true);
}

CData::~CData() = default;

bool CData::IsItemReferenced(const ITableItem* item) const {
    if (!item)
        return false;
    for (unsigned i = 0; i < layers_.GetNoItems(); ++i)
        if (layers_.GetNo(i)->GetLtype() == item)
            return true;
    for (unsigned i = 0; i < ents_.GetNoEnts(); ++i)
        if (ents_.GetEnt(i)->RefersTo(item))
            return true;
    for (const auto& test : referenceTests_)
        if (test(item))
            return true;
    return false;
}

CData::CItemUsage::CItemUsage(const CData& data) : data_(data) {
    for (unsigned i = 0; i < data.layers_.GetNoItems(); ++i)
        referenced_.insert(data.layers_.GetNo(i)->GetLtype());
    for (unsigned i = 0; i < data.ents_.GetNoEnts(); ++i)
        for (const ITableItem* item : data.ents_.GetEnt(i)->GetReferredItems())
            referenced_.insert(item);
    referenced_.erase(nullptr);
}

bool CData::CItemUsage::IsUsed(const ITableItem* item) const {
    if (!item)
        return false;
    if (referenced_.contains(item))
        return true;
    for (const auto& test : data_.referenceTests_)
        if (test(item))
            return true;
    return false;
}

void CData::AddReferenceTest(std::function<bool(const ITableItem*)> test) {
    referenceTests_.push_back(std::move(test));
}

CLayer* CData::CLayerIterator::GetNext() {
    while (CLayer* l = data_->layers_.GetNo(i_++))
        if (xref_ || !l->IsXRef())
            return l;
    return nullptr;
}

CLtype* CData::CLtypeIterator::GetNext() {
    while (CLtype* l = data_->ltypes_.GetNo(i_++)) {
        if (!xref_ && l->IsXRef())
            continue;
        if (!logical_ && (l->IsByBlock() || l->IsByLayer()))
            continue;
        return l;
    }
    return nullptr;
}

CEnt* CData::CHandleObjectIterator::GetNext() {
    while (CEnt* e = data_->ents_.GetEnt(i_++)) {
        CDrawing* d = e->GetDrawing();
        if (!d || !data_->drawings_.IsDrawingPresent(d))
            continue;
        if (!hidden_ && !d->IsVisible())
            continue;
        return e;
    }
    return nullptr;
}

CStyle* CData::CStyleIterator::GetNext() {
    while (CStyle* s = data_->styles_.GetNo(i_++))
        if (xref_ || !s->IsXRef())
            return s;
    return nullptr;
}

CLayerTable* GetMainLayerTable(CData* data) {
    return data ? &data->GetLayerTable() : nullptr;
}
CLtypeTable* GetMainLtypeTable(CData* data) {
    return data ? &data->GetLtypeTable() : nullptr;
}
CStyleTable* GetMainStyleTable(CData* data) {
    return data ? &data->GetStyleTable() : nullptr;
}
CStyle* GetStyleStandard(CData* data) {
    return data ? data->GetStyleTable().GetStyleStandard() : nullptr;
}
CLayer* FindLayer(CData* data, const ulo::WString& name) {
    return data ? data->GetLayerTable().Find(name) : nullptr;
}

}  // namespace veld
