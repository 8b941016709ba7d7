#include "CCECADDlgSnapGridCont.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QTabBar>
#include <tuple>

#include "CCECADDlgPageGrid.h"
#include "CCECADDlgPageSnap.h"
#include "app/Grid.h"
#include "app/VELD.h"
#include "app/view/VELDView.h"
#include "factory/RunDialog.h"
#include "res/StringIds.h"
#include "res/templates/ControlIds.h"
#include "shell/CGridSnapCmdExecuted.h"
#include "shell/ResString.h"
#include "ulo/NumberText.h"
#include "ulo/PalmDevice.h"
#include "ulo/ctrl/FieldInput.h"

namespace veld5 {

namespace {

// This library exports the grid's operations (app/Grid.h); taking their
// addresses compiles them in.
[[gnu::used]] constexpr std::tuple kGridOperations{
    &CGrid::operator==,   &CGrid::operator=, &CGrid::Equals,       &CGrid::IsGridActive,
    &CGrid::IsSnapActive, &CGrid::GetSnap,   &CGrid::GetGrid,      &CGrid::IsGridBySnap,
    &CGrid::SetSnap,      &CGrid::SetGrid,   &CGrid::SetGridBySnap};

// The toolkit's own texts for a field that does not hold a number, or an
// interval out of its range (0.0001 to 1e100, written as the toolkit writes
// bounds).
const QString& NotANumberText() {
    static const QString text = QStringLiteral("Please enter a number.");
    return text;
}
const QString& IntervalRangeText() {
    static const QString text = QStringLiteral("Please enter a number between 0.0001 and 1e+100.");
    return text;
}
constexpr double kMinInterval = 0.0001;
constexpr double kMaxInterval = 1e100;

}  // namespace

// ------------------------------------------------------------------- pages

CGridSnapPage::CGridSnapPage(unsigned templateId, CCECADDlgSnapGridCont* container)
    : CExDialog(templateId, container), container_(container) {}

CGrid& CGridSnapPage::Grid() const {
    return container_->GetGrid();
}

void CGridSnapPage::ShowNumber(NumberField& field, double value) {
    field.shown = CStringDaDouble(value, 0, field.decimals).ToQString();
    field.value = value;
    field.fromGrid = true;
    SetDlgItemText(field.id, field.shown);
}

void CGridSnapPage::ShowText(NumberField& field, const QString& text) {
    field.fromGrid = false;
    SetDlgItemText(field.id, text);
}

bool CGridSnapPage::ReadNumber(const NumberField& field, Range range, unsigned enabler,
                               double& value) {
    auto* edit = GetDlgItem<QLineEdit>(field.id);
    const QString text = edit ? edit->text() : field.shown;
    const bool edited = !field.fromGrid || text != field.shown;
    const bool inUse = edit && edit->isEnabled();
    if (!edited)
        value = field.value;
    if (!edited && !inUse)
        return true;  // not shown to be changed, not used: the grid keeps its value
    QString message;
    if (edited) {
        const ulo::FieldNumber read = ulo::ReadNumberField(text, ulo::FieldRule::Whole);
        if (read.kind == ulo::FieldNumber::Kind::NotANumber)
            message = NotANumberText();
        else if (read.kind == ulo::FieldNumber::Kind::OutOfRange)
            message = range == Range::Interval ? IntervalRangeText()
                                               : LoadResString(ids::kValueOutOfRange).ToQString();
        else
            value = read.value;
    }
    if (message.isEmpty() && range == Range::Interval &&
        !(value >= kMinInterval && value <= kMaxInterval))
        message = IntervalRangeText();
    if (message.isEmpty())
        return true;
    ulo::RefuseField(this, inUse ? edit : nullptr, LoadResString(ids::kWarning),
                     ulo::WString::FromQString(message));
    if (!inUse) {
        if (QWidget* check = GetDlgItem(enabler))
            check->setFocus();  // the field is off: what switches it on
    }
    return false;
}

bool CGridSnapPage::OnCommand(unsigned id) {
    if (id == GetOkId()) {
        container_->SendCommand(container_->GetOkId());
        return true;
    }
    if (id == GetCancelId()) {
        container_->SendCommand(container_->GetCancelId());
        return true;
    }
    return CExDialog::OnCommand(id);
}

// --------------------------------------------------------------- container

CCECADDlgSnapGridCont::CCECADDlgSnapGridCont(CWnd* parent)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11020, 11021, 11022, 11023), parent),
      view_(qobject_cast<CVELDView*>(parent)),
      grid_(view_ ? &GetViewGridForEdit(view_) : &spare_) {
    memento_ = ulo::RefPtr<ulo::IMemento>::Adopt(grid_->CreateMemento());
    cmdMemento_ = ulo::RefPtr<ulo::IMemento>::Adopt(grid_->CreateMemento());
}

CCECADDlgSnapGridCont::~CCECADDlgSnapGridCont() = default;

void CCECADDlgSnapGridCont::OnInitDialog() {
    tabs_ = GetDlgItem<QTabBar>(ctl::GridSnap::kTabs);
    if (tabs_) {
        tabs_->addTab(LoadResString(ids::kTabSnap).ToQString());
        tabs_->addTab(LoadResString(ids::kTabGrid).ToQString());
        tabs_->setCurrentIndex(0);
    }
    snapPage_ = std::make_unique<CCECADDlgPageSnap>(this);
    gridPage_ = std::make_unique<CCECADDlgPageGrid>(this);
    ShowPage(0);
    if (tabs_)
        connect(tabs_, &QTabBar::currentChanged, this, &CCECADDlgSnapGridCont::TabChanged);
}

void CCECADDlgSnapGridCont::TabChanged(int index) {
    if (index == currentIndex_ || ShowPage(index))
        return;
    // The page shown refused to be left: its tab stays selected.
    const QSignalBlocker block(tabs_);
    tabs_->setCurrentIndex(currentIndex_);
}

bool CCECADDlgSnapGridCont::LeaveCurrentPage() {
    if (!current_ || !current_->IsBuilt())
        return true;
    const CGrid before = *grid_;
    if (!current_->WriteToGrid())
        return false;
    if (view_ && !(before == *grid_)) {
        view_->Redraw();
        viewShowsEdits_ = true;
    }
    return true;
}

bool CCECADDlgSnapGridCont::ShowPage(int index) {
    if (!LeaveCurrentPage())
        return false;
    CGridSnapPage* page = index == 0 ? static_cast<CGridSnapPage*>(snapPage_.get())
                                     : static_cast<CGridSnapPage*>(gridPage_.get());
    if (!page->IsBuilt()) {
        const QWidget* area = GetDlgItem(ctl::GridSnap::kPageArea);
        const QRect r = area ? area->geometry() : GetClientRect();
        page->SetWindowedMode(true, true, r.left(), r.top(), r.width(), r.height());
        const unsigned id = index == 0 ? CPalmDevice::SelectIdDlgStd(11088, 11089, 11090, 11091)
                                       : CPalmDevice::SelectIdDlgStd(11084, 11085, 11086, 11087);
        if (!page->Create(id, this))
            return false;
    }
    if (current_ && current_ != page)
        current_->hide();
    page->SetActive();
    page->show();
    current_ = page;
    currentIndex_ = index;
    return true;
}

void CCECADDlgSnapGridCont::OnOK() {
    if (!LeaveCurrentPage())
        return;  // the page said why; the dialog stays open
    if (!grid_->Equals(dynamic_cast<const CGrid*>(memento_.get()))) {
        if (CVELD* cad = view_ ? view_->GetVELD() : nullptr)
            cad->AddChange(new CGridSnapCmdExecuted(view_, cmdMemento_.release()));
        if (view_)
            view_->Redraw();
    }
    cmdMemento_ = {};
    memento_ = {};
    CExDialog::OnOK();
}

void CCECADDlgSnapGridCont::OnCancel() {
    if (memento_)
        grid_->SetMemento(memento_.get());
    memento_ = {};
    cmdMemento_ = {};
    if (view_ && viewShowsEdits_)
        view_->Redraw();  // it showed the edits: it shows the grid put back
    CExDialog::OnCancel();
}

bool RunDlgGridProp(CWnd* parent) {
    if (!qobject_cast<CVELDView*>(parent))
        return false;
    return RunDialog([&] { return std::make_unique<CCECADDlgSnapGridCont>(parent); }) == ulo::IDOK;
}

}  // namespace veld5
