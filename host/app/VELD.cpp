#include "VELD.h"

#include <algorithm>
#include <cwchar>

#include "veld/Colors.h"

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

CVELD::CVELD() : data_(std::make_unique<veld::CData>()) {
    holdCurrent(settings_.curLayer, veld::FindLayer(data_.get(), L"0"));
    holdCurrent(settings_.curLtype, data_->GetLtypeTable().GetLtypeByLayer());
    holdCurrent(settings_.curStyle, data_->GetStyleTable().GetStyleStandard());
    UpdateAngleConverter();
}

CVELD::~CVELD() {
    undo_.Clear();  // commands may refer to items: they go first
    holdCurrent<veld::CLayer>(settings_.curLayer, nullptr);
    holdCurrent<veld::CLtype>(settings_.curLtype, nullptr);
    holdCurrent<veld::CStyle>(settings_.curStyle, nullptr);
}

void CVELD::AttachView(CVELDView* view) {
    if (std::find(views_.begin(), views_.end(), view) == views_.end())
        views_.push_back(view);
}

void CVELD::DetachView(CVELDView* view) {
    views_.erase(std::remove(views_.begin(), views_.end(), view), views_.end());
}

void CVELD::AddChange(ulo::ICmdExecuted* command) {
    undo_.Add(command);
    NotifyRedraw();
}

bool CVELD::Undo() {
    const bool done = undo_.Undo();
    if (done)
        NotifyRedraw();
    return done;
}

bool CVELD::Redo() {
    const bool done = undo_.Redo();
    if (done)
        NotifyRedraw();
    return done;
}

int CVELD::AddRedrawListener(Listener listener) {
    static int next = 1;
    listeners_.emplace_back(next, std::move(listener));
    return next++;
}

void CVELD::RemoveRedrawListener(int id) {
    listeners_.erase(std::remove_if(listeners_.begin(), listeners_.end(),
                                    [id](const auto& p) { return p.first == id; }),
                     listeners_.end());
}

void CVELD::NotifyRedraw() {
    ++redraws_;
    const auto listeners = listeners_;
    for (const auto& [id, l] : listeners)
        l();
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

veld::CLayer* GetCurLayer(const CVELD* cad) {
    return cad->GetSettings().curLayer;
}
void SetCurLayer(CVELD* cad, veld::CLayer* layer) {
    holdCurrent(cad->GetSettings().curLayer, layer);
}
veld::CLtype* GetCurLtype(const CVELD* cad) {
    return cad->GetSettings().curLtype;
}
void SetCurLtype(CVELD* cad, veld::CLtype* ltype) {
    holdCurrent(cad->GetSettings().curLtype, ltype);
}
veld::CStyle* GetCurStyle(const CVELD* cad) {
    return cad->GetSettings().curStyle;
}
void SetCurStyle(CVELD* cad, veld::CStyle* style) {
    holdCurrent(cad->GetSettings().curStyle, style);
}
double GetLtypeScale(const CVELD* cad) {
    return cad->GetSettings().ltypeScale;
}
void SetLtypeScale(CVELD* cad, double scale) {
    cad->GetSettings().ltypeScale = scale;
}

void GetAngleSystem(const CVELD* cad, short& system, double& base, bool& clockwise) {
    system = cad->GetSettings().angleSystem;
    base = cad->GetSettings().angleBase;
    clockwise = cad->GetSettings().angleClockwise;
}

void SetAngleSystem(CVELD* cad, short system, double base, bool clockwise) {
    auto& s = cad->GetSettings();
    s.angleSystem = system;
    s.angleBase = base;
    s.angleClockwise = clockwise;
    cad->UpdateAngleConverter();
}

const IAngleConverter* GetAngleConverter(const CVELD* cad) {
    return cad->GetAngleConverter();
}

long GetCrossDim(const CVELD* cad) {
    return cad->GetSettings().crossDim;
}
void SetCrossDim(CVELD* cad, long size) {
    cad->GetSettings().crossDim = size;
}
long GetDeltaPick(const CVELD* cad) {
    return cad->GetSettings().deltaPick;
}
void SetDeltaPick(CVELD* cad, long size) {
    cad->GetSettings().deltaPick = size;
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
    cad->GetSettings().background = c;
}
void SetClrGrid(CVELD* cad, const GColor& c) {
    cad->GetSettings().grid = c;
}
void SetClrEntSelected(CVELD* cad, const GColor& c) {
    cad->GetSettings().selected = c;
}
void SetClrCrossHair(CVELD* cad, const GColor& c) {
    cad->GetSettings().crossHair = c;
}
bool DoColorSelectedEnts() {
    return globalColorSelected;
}
void SetDoColorSelectedEnts(bool on) {
    globalColorSelected = on;
}
void SetDoColorSelectedEnts(CVELDView* view, bool on) {
    if (view)
        view->SetColorSelected(on);
}

void redrawAllViews(CVELD& cad) {
    cad.NotifyRedraw();
    for (int i = 0; i < cad.GetNoViews(); ++i)
        cad.GetView(i)->update();
}

bool not_numeric_input(const wchar_t* text) {
    if (!text)
        return true;
    wchar_t* end = nullptr;
    std::wcstod(text, &end);
    return end == text;
}
