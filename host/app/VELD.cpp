#include "VELD.h"

#include <algorithm>
#include <type_traits>

#include "ulo/NumberText.h"
#include "veld/Colors.h"
#include "veld/EntCollection.h"
#include "veld/StoredRange.h"

namespace {
template <class T>
void holdCurrent(T*& slot, T* item) {
    if (slot == item)
        return;
    if (item)
        item->AddReference();
    if (slot)
        slot->SubReference();
    slot = item;
}

bool globalColorSelected = true;
}  // namespace

CVELD::CVELD()
    : data_(std::make_unique<veld::CData>()), selection_(std::make_unique<veld::CEntCollection>()) {
    SetCurrentItems(veld::FindLayer(data_.get(), L"0"), data_->GetLtypeTable().GetLtypeByLayer(),
                    data_->GetStyleTable().GetStyleStandard());
    UpdateAngleConverter();
    data_->GetDataTablesSourceEvent()->AddListener(&relay_);
    event_.AddListener(&relay_);
}

CVELD::~CVELD() {
    event_.RemoveListener(&relay_);
    data_->GetDataTablesSourceEvent()->RemoveListener(&relay_);
    listeners_.clear();
    // Commands and the selection refer to items and entities: they go first.
    undo_.Clear();
    selection_->RemoveAllEnts();
    const auto views = views_;  // each view detaches itself
    for (const View& view : views)
        view.state->ForgetVELD();
    SetCurrentItems(nullptr, nullptr, nullptr);
}

void CVELD::SetCurrentItems(veld::CLayer* layer, veld::CLtype* ltype, veld::CStyle* style) {
    holdCurrent(settings_.curLayer, layer);
    holdCurrent(settings_.curLtype, ltype);
    holdCurrent(settings_.curStyle, style);
}

void CVELD::SetData(std::unique_ptr<veld::CData> data) {
    if (!data)
        return;
    undo_.Clear();
    selection_->RemoveAllEnts();
    reflected_.clear();
    // The current items belong to the old drawing: let them go before it does.
    SetCurrentItems(nullptr, nullptr, nullptr);
    data_->GetDataTablesSourceEvent()->RemoveListener(&relay_);
    data_ = std::move(data);
    data_->GetDataTablesSourceEvent()->AddListener(&relay_);
    SetCurrentItems(veld::FindLayer(data_.get(), L"0"), data_->GetLtypeTable().GetLtypeByLayer(),
                    data_->GetStyleTable().GetStyleStandard());
    NotifyChange(Change::Redraw);
}

CVELDView* CVELD::GetActiveView() const {
    if (activeView_)
        return activeView_;
    return views_.empty() ? nullptr : views_.front().window;
}

namespace {
template <class Views>
auto findView(Views& views, const CVELDView* window) {
    return std::find_if(views.begin(), views.end(),
                        [window](const auto& v) { return v.window == window; });
}
}  // namespace

void CVELD::SetActiveView(CVELDView* view) {
    if (findView(views_, view) != views_.end())
        activeView_ = view;
}

void CVELD::AttachView(CVELDView* window, CViewState* state) {
    if (window && state && findView(views_, window) == views_.end())
        views_.push_back({window, state});
}

void CVELD::DetachView(CVELDView* window) {
    if (auto it = findView(views_, window); it != views_.end())
        views_.erase(it);
    if (activeView_ == window)
        activeView_ = nullptr;
}

void CVELD::SetOSnapper(bool on, unsigned mask) {
    if (osnapOn_ == on && osnapMask_ == mask)
        return;
    osnapOn_ = on;
    osnapMask_ = mask;
    event_.NotifyVarChanged(kVarOSnap);
}

void CVELD::AddChange(ulo::ICmdExecuted* command) {
    if (!command)
        return;
    undo_.Add(command);
    NotifyChange(Change::UndoList);
}

bool CVELD::Undo() {
    const bool done = undo_.Undo();
    if (done)
        NotifyChange(Change::UndoList);
    return done;
}

bool CVELD::Redo() {
    const bool done = undo_.Redo();
    if (done)
        NotifyChange(Change::UndoList);
    return done;
}

CVELDImage* CVELD::AddImage(std::unique_ptr<CVELDImage> image) {
    if (!image)
        return nullptr;
    images_.push_back(std::move(image));
    return images_.back().get();
}

CVELDImage* CVELD::GetImage(int i) const {
    return i >= 0 && i < GetNoImages() ? images_[i].get() : nullptr;
}

CVELDImage* CVELD::FindImage(const QString& name) const {
    for (const auto& image : images_) {
        if (image->GetName().compare(name, Qt::CaseInsensitive) == 0)
            return image.get();
    }
    return nullptr;
}

bool CVELD::RemoveImage(const CVELDImage* image) {
    const auto it = std::find_if(images_.begin(), images_.end(),
                                 [image](const auto& p) { return p.get() == image; });
    if (it == images_.end())
        return false;
    images_.erase(it);
    return true;
}

int CVELD::AddChangeListener(ChangeListener listener) {
    listeners_.emplace_back(nextListener_, std::move(listener));
    return nextListener_++;
}

int CVELD::AddRedrawListener(std::function<void()> listener) {
    return AddChangeListener([l = std::move(listener)](Change) { l(); });
}

void CVELD::RemoveChangeListener(int id) {
    listeners_.erase(std::remove_if(listeners_.begin(), listeners_.end(),
                                    [id](const auto& p) { return p.first == id; }),
                     listeners_.end());
}

void CVELD::NotifyChange(Change why) {
    // A listener may remove itself (or others) while being told: walk a copy.
    const auto listeners = listeners_;
    for (const auto& [id, l] : listeners)
        l(why);
}

void CVELD::UpdateAngleConverter() {
    const double base = settings_.angleBase;
    const bool cw = settings_.angleClockwise;
    switch (settings_.angleSystem) {
        case 2:
            converter_ = std::make_unique<CGradsConverter>(base, cw);
            break;
        case 3:
            converter_ = std::make_unique<CRadiantConverter>(base, cw);
            break;
        default:
            converter_ = std::make_unique<CDegreeConverter>(base, cw);
            break;
    }
}

namespace {
/// Sets one setting of the CAD instance and, when it changed, tells the
/// listeners of @p var. The pointer settings are the current items: the CAD
/// instance holds a reference on each.
template <class T>
void setSetting(CVELD* cad, T CVELD::Settings::*field, const T& value, CVELD::Var var) {
    T& slot = cad->GetSettings().*field;
    if (slot == value)
        return;
    if constexpr (std::is_pointer_v<T>)
        holdCurrent(slot, value);
    else
        slot = value;
    cad->GetVeldSourceEvent()->NotifyVarChanged(var);
}
}  // namespace

veld::CLayer* GetCurLayer(const CVELD* cad) {
    return cad->GetSettings().curLayer;
}
void SetCurLayer(CVELD* cad, veld::CLayer* layer) {
    setSetting(cad, &CVELD::Settings::curLayer, layer, CVELD::kVarCurLayer);
}
veld::CLtype* GetCurLtype(const CVELD* cad) {
    return cad->GetSettings().curLtype;
}
void SetCurLtype(CVELD* cad, veld::CLtype* ltype) {
    setSetting(cad, &CVELD::Settings::curLtype, ltype, CVELD::kVarCurLtype);
}
veld::CStyle* GetCurStyle(const CVELD* cad) {
    return cad->GetSettings().curStyle;
}
void SetCurStyle(CVELD* cad, veld::CStyle* style) {
    setSetting(cad, &CVELD::Settings::curStyle, style, CVELD::kVarCurStyle);
}
double GetLtypeScale(const CVELD* cad) {
    return cad->GetSettings().ltypeScale;
}
void SetLtypeScale(CVELD* cad, double scale) {
    // A scale a drawing file cannot hold (not positive, not finite) is never
    // taken: the one in force stays.
    if (veld::stored::kLtypeScale.Holds(scale))
        setSetting(cad, &CVELD::Settings::ltypeScale, scale, CVELD::kVarLtypeScale);
}

void GetAngleSystem(const CVELD* cad, short& system, double& base, bool& clockwise) {
    system = cad->GetSettings().angleSystem;
    base = cad->GetSettings().angleBase;
    clockwise = cad->GetSettings().angleClockwise;
}

void SetAngleSystem(CVELD* cad, short system, double base, bool clockwise) {
    if (!veld::stored::kAngleBase.Holds(base))
        return;
    base = veld::Kept(base);
    auto& s = cad->GetSettings();
    if (s.angleSystem == system && s.angleBase == base && s.angleClockwise == clockwise)
        return;
    s.angleSystem = system;
    s.angleBase = base;
    s.angleClockwise = clockwise;
    cad->UpdateAngleConverter();
    cad->GetVeldSourceEvent()->NotifyVarChanged(CVELD::kVarAngleSystem);
}

const IAngleConverter* GetAngleConverter(const CVELD* cad) {
    return cad->GetAngleConverter();
}

long GetCrossDim(const CVELD* cad) {
    return cad->GetSettings().crossDim;
}
void SetCrossDim(CVELD* cad, long size) {
    setSetting(cad, &CVELD::Settings::crossDim, size, CVELD::kVarCursor);
}
long GetDeltaPick(const CVELD* cad) {
    return cad->GetSettings().deltaPick;
}
void SetDeltaPick(CVELD* cad, long size) {
    setSetting(cad, &CVELD::Settings::deltaPick, size, CVELD::kVarCursor);
}

GColor GetClrNo(const CVELD*, int index) {
    return GColor(veld::IndexToRGB(index));
}
GColor GetClrGrphWndBkGrnd(const CVELD* cad) {
    return cad->GetSettings().background;
}
GColor GetClrGrid(const CVELD* cad) {
    return cad->GetSettings().grid;
}
GColor GetClrEntSelected(const CVELD* cad) {
    return cad->GetSettings().selected;
}
GColor GetClrLogCrossHair(const CVELD* cad) {
    return cad->GetSettings().crossHair;
}

void SetClrGrphWndBkGrnd(CVELD* cad, const GColor& c) {
    setSetting(cad, &CVELD::Settings::background, c, CVELD::kVarColors);
}
void SetClrGrid(CVELD* cad, const GColor& c) {
    setSetting(cad, &CVELD::Settings::grid, c, CVELD::kVarColors);
}
void SetClrEntSelected(CVELD* cad, const GColor& c) {
    setSetting(cad, &CVELD::Settings::selected, c, CVELD::kVarColors);
}
void SetClrCrossHair(CVELD* cad, const GColor& c) {
    setSetting(cad, &CVELD::Settings::crossHair, c, CVELD::kVarColors);
}
bool DoColorSelectedEnts() {
    return globalColorSelected;
}
void SetDoColorSelectedEnts(bool on) {
    globalColorSelected = on;
}

veld::CEntCollection& GetSelectedEntCollection(const CVELD* cad) {
    return const_cast<CVELD*>(cad)->GetSelection();
}

void NtfySelectedEnt(CVELD* cad, veld::CEnt* entity) {
    if (!cad || !entity || cad->GetSelection().Contains(entity))
        return;
    cad->GetSelection().AddEnt(entity);
    cad->NotifyChange(CVELD::Change::Selection);
}

void NtfyDeselectedEnt(CVELD* cad, veld::CEnt* entity) {
    if (cad && cad->GetSelection().RemoveEnt(entity))
        cad->NotifyChange(CVELD::Change::Selection);
}

void NtfyDeselectAll(CVELD* cad) {
    if (!cad || cad->GetSelection().GetNoEnts() == 0)
        return;
    cad->GetSelection().RemoveAllEnts();
    cad->NotifyChange(CVELD::Change::Selection);
}

void ReflectEntModified(CVELD* cad, veld::CEnt* entity) {
    if (!cad || !entity)
        return;
    cad->Reflect(entity);
    cad->NotifyChange(CVELD::Change::Entity);
}

veld::CEntText* CreateEntText(const CVELD* cad, const veld::TEXT_3D& text) {
    auto* self = const_cast<CVELD*>(cad);
    veld::CDrawing* set = self->GetData()->GetDrawingManager()->GetActiveDrawing(0);
    veld::CLtypeTable& ltypes = self->GetData()->GetLtypeTable();
    return new veld::CEntText(text, GetCurLayer(cad), ltypes.GetLtypeByLayer(), 256, set);
}

void redrawAllViews(CVELD& cad) {
    cad.CountRedraw();
    cad.NotifyChange(CVELD::Change::Redraw);  // the views listen and draw again
}

bool not_numeric_input(const wchar_t* text) {
    // One decimal number and blanks around it, nothing else ("inf", "nan" and
    // hexadecimal are not numbers).
    return !text || !ulo::IsWholeNumber(text);
}
