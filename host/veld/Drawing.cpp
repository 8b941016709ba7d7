#include "Drawing.h"

#include <algorithm>

#include "Data.h"
#include "EntCollection.h"

namespace veld {

CDrawingType::CDrawingType(unsigned id, ulo::WString name, int icon)
    : id_(id), name_(std::move(name)), icon_(icon) {}

bool CDrawingType::PrepareNewDrawing(const ulo::WString&, unsigned& cookie) {
    cookie = nextCookie_++;
    ++openCookies_;
    return true;
}

void CDrawingType::DiscardNewDrawing(unsigned cookie) {
    if (cookie != 0 && openCookies_ > 0)
        --openCookies_;
}

CDrawing::CDrawing(CData* data, const ulo::WString& name, unsigned flags, IHandleGestor* gestor,
                   CDrawingType* type)
    : CStatefulItem(name, flags, {}), type_(type), gestor_(gestor) {
    SetData(data);
    if (gestor)
        SetHandle(gestor->NewHandle());
}

unsigned CDrawing::Site::GetNoEnts() const {
    CData* data = d_->GetData();
    return data ? data->GetEntTable().CountIn(d_) : 0;
}

CDrawingManager::CDrawingManager(CData* data, IHandleGestor* gestor)
    : data_(data), gestor_(gestor) {
    types_.push_back(std::make_unique<CDrawingType>(0, L"CAD", 0));
    types_.push_back(std::make_unique<CDrawingType>(1, L"Topog.", 0));
    types_.push_back(std::make_unique<CDrawingType>(2, L"Points", 0));
    types_.push_back(std::make_unique<CDrawingType>(4, L"Reference", 0));
    // Point sets belong to the survey: the user may not edit or delete them.
    types_[2]->SetPermissions({false, false, false, false});
    // Attached sets can go, with what they show, as long as nobody refers to them.
    types_[3]->SetPermissions({true, true, true, true});
    active_.resize(types_.size(), nullptr);
}

CDrawingManager::~CDrawingManager() {
    std::vector<CDrawing*> drawings;
    drawings.swap(drawings_);
    for (CDrawing* d : drawings)
        d->SubReference();
}

CDrawingType* CDrawingManager::GetDrawingTypeAtPos(unsigned i) const {
    return i < types_.size() ? types_[i].get() : nullptr;
}

CDrawingType* CDrawingManager::GetDrawingType(unsigned id) const {
    for (const auto& t : types_)
        if (t->GetID() == id)
            return t.get();
    return nullptr;
}

CDrawing* CDrawingManager::GetDrawingAtPos(unsigned i) const {
    return i < drawings_.size() ? drawings_[i] : nullptr;
}

bool CDrawingManager::IsDrawingPresent(const CDrawing* drawing) const {
    return std::find(drawings_.begin(), drawings_.end(), drawing) != drawings_.end();
}

CDrawing* CDrawingManager::FindDrawing(unsigned typeId, const ulo::WString& name) const {
    for (CDrawing* d : drawings_) {
        const CDrawingType* t = d->GetDrawingType();
        if ((t ? t->GetID() : 0) == typeId && d->GetName().CompareIgnoreCase(name) == 0)
            return d;
    }
    return nullptr;
}

void CDrawingManager::GetAllDrawingsForType(unsigned typeId, CDrawingList& list) const {
    list.clear();
    for (CDrawing* d : drawings_)
        if (d->GetDrawingType() && d->GetDrawingType()->GetID() == typeId)
            list.push_back(d);
}

CDrawing* CDrawingManager::AddDrawing(unsigned typeId, const ulo::WString& name, bool visible,
                                      bool locked, bool hidden, bool atEnd) {
    CDrawingType* type = GetDrawingType(typeId);
    if (!type)
        return nullptr;
    auto* d = new CDrawing(data_, name, 0, gestor_, type);
    d->SetVisible(visible);
    d->SetLocked(locked);
    d->SetHidden(hidden);
    drawings_.insert(atEnd ? drawings_.end() : drawings_.begin(), d);  // takes the new reference
    ActivateIfNone(d);
    return d;
}

bool CDrawingManager::AddDrawing(CDrawing* drawing) {
    if (!drawing || IsDrawingPresent(drawing))
        return false;
    drawing->AddReference();
    drawings_.push_back(drawing);
    ActivateIfNone(drawing);
    return true;
}

bool CDrawingManager::RemoveDrawing(CDrawing* drawing) {
    const auto it = std::find(drawings_.begin(), drawings_.end(), drawing);
    if (it == drawings_.end())
        return false;
    drawings_.erase(it);
    for (size_t i = 0; i < types_.size(); ++i) {
        if (active_[i] != drawing)
            continue;
        active_[i] = nullptr;
        for (CDrawing* d : drawings_)
            if (d->GetDrawingType() == types_[i].get()) {
                active_[i] = d;
                break;
            }
    }
    drawing->SubReference();
    return true;
}

void CDrawingManager::ChangeOrder(const CDrawingList& order) {
    std::vector<CDrawing*> next;
    for (CDrawing* d : order)
        if (IsDrawingPresent(d) && std::find(next.begin(), next.end(), d) == next.end())
            next.push_back(d);
    for (CDrawing* d : drawings_)
        if (std::find(next.begin(), next.end(), d) == next.end())
            next.push_back(d);
    drawings_ = std::move(next);
}

CDrawing* CDrawingManager::GetActiveDrawing(unsigned typeId) const {
    for (size_t i = 0; i < types_.size(); ++i)
        if (types_[i]->GetID() == typeId)
            return active_[i];
    return nullptr;
}

CDrawingList CDrawingManager::GetActiveDrawings() const {
    CDrawingList list;
    for (CDrawing* d : active_)
        if (d)
            list.push_back(d);
    return list;
}

bool CDrawingManager::SetActiveDrawing(CDrawing* drawing) {
    if (!drawing || !IsDrawingPresent(drawing))
        return false;
    CDrawing** slot = ActiveSlot(drawing->GetDrawingType());
    if (slot)
        *slot = drawing;
    return slot != nullptr;
}

CDrawing** CDrawingManager::ActiveSlot(const CDrawingType* type) {
    for (size_t i = 0; i < types_.size(); ++i)
        if (types_[i].get() == type)
            return &active_[i];
    return nullptr;
}

void CDrawingManager::ActivateIfNone(CDrawing* drawing) {
    if (CDrawing** slot = ActiveSlot(drawing->GetDrawingType()); slot && !*slot)
        *slot = drawing;
}

ulo::WString CDrawingManager::GetNewSuitableName(unsigned typeId,
                                                 const std::vector<ulo::WString>& names) const {
    const CDrawingType* type = GetDrawingType(typeId);
    std::wstring base = type ? type->GetName().str() : L"Set";
    if (!base.empty() && base.back() == L'.')
        base.pop_back();
    for (unsigned n = 1;; ++n) {
        const ulo::WString candidate(base + std::to_wstring(n));
        const bool taken = std::any_of(names.begin(), names.end(), [&](const ulo::WString& s) {
            return s.CompareIgnoreCase(candidate) == 0;
        });
        if (!taken)
            return candidate;
    }
}

}  // namespace veld
