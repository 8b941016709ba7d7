#include "Dialog.h"

#include <QButtonGroup>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QTabBar>
#include <cmath>
#include <map>
#include <string>
#include <string_view>

#include "ulo/HelpTopic.h"
#include "ulo/ResourceModule.h"
#include "ulo/Xlate.h"

namespace ulo {

// The names the dialogs declare their properties by (Dialog.h).
static_assert(std::string_view(prop::kTemplateId) == "veldTemplateId" &&
              std::string_view(prop::kBaseId) == "veldBaseId" &&
              std::string_view(prop::kLayout) == "veldLayout" &&
              std::string_view(prop::kOkId) == "veldOkId" &&
              std::string_view(prop::kCancelId) == "veldCancelId");

// -------------------------------------------------------------- dialog units

CDialogUnits::CDialogUnits(const QFont& font) {
    const QFontMetrics fm(font);
    const int alphabet = fm.horizontalAdvance(
        QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"));
    baseX_ = std::max(1, (alphabet / 26 + 1) / 2);
    baseY_ = std::max(1, fm.height());
}

int CDialogUnits::X(int du) const {
    return static_cast<int>(std::lround(du * baseX_ / 4.0));
}
int CDialogUnits::Y(int du) const {
    return static_cast<int>(std::lround(du * baseY_ / 8.0));
}

QRect CDialogUnits::Rect(const DlgRect& r) const {
    const int left = X(r.x);
    const int top = Y(r.y);
    return QRect(left, top, X(r.x + r.w) - left, Y(r.y + r.h) - top);
}

void InstallDialogFontSubstitutions() {
    static bool done = false;
    if (done)
        return;
    done = true;
    const QStringList sans = {QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans"),
                              QStringLiteral("Arial"), QStringLiteral("Helvetica")};
    QFont::insertSubstitutions(QStringLiteral("Tahoma"), sans);
    QFont::insertSubstitutions(QStringLiteral("MS Shell Dlg"), sans);
}

QFont DialogFont(const DialogTemplate& t) {
    InstallDialogFontSubstitutions();
    QFont f(QString::fromWCharArray(t.fontName ? t.fontName : L"Tahoma"));
    f.setPointSize(t.fontPoints > 0 ? t.fontPoints : 9);
    f.setStyleHint(QFont::SansSerif);
    return f;
}

namespace {
/// A template's font and its units, made once for each font a template names.
struct TemplateFont {
    QFont font;
    CDialogUnits units;
};

const TemplateFont& templateFont(const DialogTemplate& t) {
    static std::map<std::pair<std::wstring, int>, TemplateFont> made;
    const std::pair<std::wstring, int> key(t.fontName ? t.fontName : L"", t.fontPoints);
    auto it = made.find(key);
    if (it == made.end()) {
        const QFont font = DialogFont(t);
        it = made.emplace(key, TemplateFont{font, CDialogUnits(font)}).first;
    }
    return it->second;
}
}  // namespace

// ---------------------------------------------------------------- help hook

namespace {
std::function<void(QWidget*)>& helpHandler() {
    static std::function<void(QWidget*)> h;
    return h;
}
}  // namespace

void SetHelpCommandHandler(std::function<void(QWidget*)> handler) {
    helpHandler() = std::move(handler);
}

void InvokeHelpCommand(QWidget* dialog) {
    if (helpHandler())
        helpHandler()(dialog);
}

// ---------------------------------------------------------------- the dialog

CWSizeDialog::CWSizeDialog(unsigned templateId, CWnd* parent)
    : QDialog(parent), templateId_(templateId) {}

CWSizeDialog::~CWSizeDialog() = default;

bool CWSizeDialog::Build(CWnd* parent, bool child) {
    if (built_)
        return true;
    const HINSTANCE module = AfxGetResourceHandle();
    template_ = module ? module->FindTemplate(templateId_, &variant_) : nullptr;
    if (!template_)
        return false;
    const TemplateFont& font = templateFont(*template_);
    setFont(font.font);
    units_ = &font.units;
    if (template_->okId)
        okId_ = template_->okId;
    if (template_->cancelId)
        cancelId_ = template_->cancelId;

    const DlgSize size = template_->size[variant_];
    const QSize pixels(units_->X(size.w), units_->Y(size.h));
    if (child) {
        setParent(parent, Qt::Widget);
        const QRect g = childGeometry_.isValid() ? childGeometry_ : QRect(QPoint(0, 0), pixels);
        setGeometry(g);
    } else {
        setFixedSize(pixels);
        setWindowTitle(Xlate(WString(template_->title ? template_->title : L"")).ToQString());
        setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    }

    QButtonGroup* radioGroup = nullptr;
    int index = 0;
    for (const CtrlTemplate& ctrl : template_->controls) {
        QWidget* w = BuildControl(ctrl, variant_);
        if (!w)
            continue;
        w->setProperty(prop::kCtrlIndex, index++);
        if (ctrl.kind == CtrlKind::RadioButton) {
            if (!radioGroup || (ctrl.style & kGroupStart)) {
                radioGroup = new QButtonGroup(this);
                radioGroup->setExclusive(true);
            }
            radioGroup->addButton(static_cast<QAbstractButton*>(w));
        } else if (ctrl.kind != CtrlKind::Static && ctrl.kind != CtrlKind::GroupBox) {
            radioGroup = nullptr;
        }
    }
    built_ = true;
    return true;
}

QWidget* CWSizeDialog::BuildControl(const CtrlTemplate& ctrl, int variant) {
    const bool alt = ctrl.altLabel && (ctrl.altLabelIn & (1u << variant));
    const QString label =
        Xlate(WString(alt ? ctrl.altLabel : (ctrl.label ? ctrl.label : L""))).ToQString();
    QWidget* w = CreateCustomControl(ctrl, this);
    // A text is set once a control is whole, never through a Qt constructor:
    // a text set while the Qt base class constructs makes Qt's accessibility
    // cache an interface for the base class, which it drops and makes again
    // for our class at the next event (twice the work for every control).
    if (!w) {
        switch (ctrl.kind) {
            case CtrlKind::Static: {
                auto* l = new CCEStatic(this);
                l->setTextFormat(Qt::PlainText);
                l->setText(label);
                l->setAlignment((ctrl.style & kCenter)  ? Qt::AlignHCenter | Qt::AlignTop
                                : (ctrl.style & kRight) ? Qt::AlignRight | Qt::AlignTop
                                                        : Qt::AlignLeft | Qt::AlignTop);
                if (ctrl.style & kBorder)
                    l->setFrameStyle(QFrame::Box | QFrame::Plain);
                if (ctrl.style & kMultiline)
                    l->setWordWrap(true);
                w = l;
                break;
            }
            case CtrlKind::GroupBox: {
                auto* g = new CCEGroupBox(this);
                g->setTitle(label);
                w = g;
                break;
            }
            case CtrlKind::PushButton: {
                auto* b = new CColButton(this);
                b->setText(label);
                w = b;
                break;
            }
            case CtrlKind::CheckBox: {
                auto* b = new CCEBaseButton(this);
                b->setText(label);
                w = b;
                break;
            }
            case CtrlKind::RadioButton: {
                auto* b = new CCERadioButton(this);
                b->setText(label);
                w = b;
                break;
            }
            case CtrlKind::Edit: {
                CCEBaseKeybEdit* e = (ctrl.style & kNumeric)
                                         ? static_cast<CCEBaseKeybEdit*>(new CCEEditKeybNum(this))
                                         : new CCEEditKeybTxt(this);
                e->setText(label);
                if (ctrl.style & kPassword)
                    e->setEchoMode(QLineEdit::Password);
                if (ctrl.style & kUppercase)
                    e->setValidator(new CUppercaseValidator(e));
                if (ctrl.style & kReadOnly)
                    e->setReadOnly(true);
                w = e;
                break;
            }
            case CtrlKind::ComboBox: {
                auto* c = new CCEBaseKeybCombo(this);
                c->SetSorted(ctrl.style & kSorted);
                w = c;
                break;
            }
            case CtrlKind::ListView: {
                if (ctrl.style & kIconView) {
                    auto* l = new QListWidget(this);
                    l->setViewMode(QListView::IconMode);
                    w = l;
                } else {
                    w = new QTableWidget(this);
                }
                break;
            }
            case CtrlKind::TabControl: {
                auto* t = new QTabBar(this);
                t->setExpanding(false);
                w = t;
                break;
            }
            case CtrlKind::ScrollBarH:
                w = new QScrollBar(Qt::Horizontal, this);
                break;
            case CtrlKind::Custom: {
                auto* f = new QFrame(this);
                if (ctrl.style & kBorder)
                    f->setFrameStyle(QFrame::Box | QFrame::Plain);
                w = f;
                break;
            }
        }
    }
    if (w->parentWidget() != this)
        w->setParent(this);
    w->setProperty(prop::kCtrlId, ctrl.id);
    if (ctrl.id != kStaticId)
        controls_.emplace(ctrl.id, w);  // the first control of an id is the one found
    w->setGeometry(units_->Rect(ctrl.rect[variant]));
    if (ctrl.kind == CtrlKind::GroupBox)
        w->lower();
    if ((ctrl.style & kHidden) || (ctrl.hiddenIn & (1u << variant)))
        w->setHidden(true);
    if ((ctrl.style & kDisabled) || (ctrl.disabledIn & (1u << variant)))
        w->setEnabled(false);

    if (auto* button = qobject_cast<QAbstractButton*>(w)) {
        const unsigned id = ctrl.id;
        connect(button, &QAbstractButton::clicked, this, [this, id] { OnCommand(id); });
    }
    if (ctrl.id == template_->okId || ctrl.id == template_->cancelId)
        if (auto* button = qobject_cast<CColButton*>(w))
            button->SetBtnColor(0, 2);
    return w;
}

INT_PTR CWSizeDialog::DoModal() {
    if (!Build(parentWidget(), false))
        return -1;
    if (!Initialise())
        return result();  // ended while it set itself up: never shown
    return exec();
}

bool CWSizeDialog::Create(unsigned templateId, CWnd* parent) {
    templateId_ = templateId;
    return Build(parent, true) && Initialise();
}

bool CWSizeDialog::Initialise() {
    if (template_->helpTopic)
        SetHelpTopic(WString(template_->helpTopic));
    ended_ = false;
    OnInitDialog();
    return !ended_;
}
void CWSizeDialog::OnOK() {
    EndDialog(IDOK);
}
void CWSizeDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

bool CWSizeDialog::OnCommand(unsigned id) {
    if (id == okId_) {
        OnOK();
        return true;
    }
    if (id == cancelId_) {
        OnCancel();
        return true;
    }
    if (id == ID_HELP) {
        if (!(template_ && template_->helpByTopicOnly))
            InvokeHelpCommand(this);
        return true;
    }
    return false;
}

QWidget* CWSizeDialog::CreateCustomControl(const CtrlTemplate&, QWidget*) {
    return nullptr;
}

void CWSizeDialog::EndDialog(int code) {
    ended_ = true;
    done(code);
}

void CWSizeDialog::reject() {
    OnCancel();
}
void CWSizeDialog::accept() {
    OnOK();
}

void CWSizeDialog::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_F1:
            OnCommand(ID_HELP);
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            OnCommand(okId_);
            return;
        case Qt::Key_Escape:
            OnCommand(cancelId_);
            return;
        default:
            QDialog::keyPressEvent(event);
    }
}

QWidget* CWSizeDialog::GetDlgItem(unsigned id) const {
    if (const auto it = controls_.find(id); it != controls_.end())
        return it->second.data();
    // The controls of the pages a container holds.
    for (const CWSizeDialog* page : findChildren<CWSizeDialog*>(Qt::FindDirectChildrenOnly))
        if (QWidget* w = page->GetDlgItem(id))
            return w;
    return nullptr;
}

QString CWSizeDialog::GetDlgItemText(unsigned id) const {
    QWidget* w = GetDlgItem(id);
    if (auto* e = qobject_cast<QLineEdit*>(w))
        return e->text();
    if (auto* l = qobject_cast<QLabel*>(w))
        return l->text();
    if (auto* b = qobject_cast<QAbstractButton*>(w))
        return b->text();
    if (auto* g = qobject_cast<QGroupBox*>(w))
        return g->title();
    if (auto* c = qobject_cast<QComboBox*>(w))
        return c->currentText();
    return QString();
}

void CWSizeDialog::SetDlgItemText(unsigned id, const QString& text) {
    QWidget* w = GetDlgItem(id);
    if (auto* e = qobject_cast<QLineEdit*>(w))
        e->setText(text);
    else if (auto* l = qobject_cast<QLabel*>(w))
        l->setText(text);
    else if (auto* b = qobject_cast<QAbstractButton*>(w))
        b->setText(text);
    else if (auto* g = qobject_cast<QGroupBox*>(w))
        g->setTitle(text);
}

void CWSizeDialog::EnableDlgItem(unsigned id, bool enable) {
    if (QWidget* w = GetDlgItem(id))
        w->setEnabled(enable);
}

bool CWSizeDialog::IsDlgButtonChecked(unsigned id) const {
    auto* b = GetDlgItem<QAbstractButton>(id);
    return b && b->isChecked();
}

void CWSizeDialog::CheckDlgButton(unsigned id, bool checked) {
    if (auto* b = GetDlgItem<QAbstractButton>(id))
        b->setChecked(checked);
}

void CWSizeDialog::CheckRadioButton(unsigned first, unsigned last, unsigned id) {
    for (unsigned i = first; i <= last; ++i) {
        auto* b = GetDlgItem<QAbstractButton>(i);
        if (!b)
            continue;
        QButtonGroup* g = b->group();
        const bool exclusive = g && g->exclusive();
        if (exclusive && i != id && b->isChecked())
            g->setExclusive(false);
        b->setChecked(i == id);
        if (exclusive)
            g->setExclusive(true);
    }
}

unsigned CWSizeDialog::GetCheckedRadioButton(unsigned first, unsigned last) const {
    for (unsigned i = first; i <= last; ++i)
        if (IsDlgButtonChecked(i))
            return i;
    return 0;
}

void CExDialog::SetActive() {
    // Help follows the page in front, also when the user comes back to it.
    if (const DialogTemplate* t = GetTemplate(); t && t->helpTopic)
        SetHelpTopic(WString(t->helpTopic));
    OnSetActive();
}

void CExDialog::SetWindowedMode(bool windowed, bool child, int left, int top, int width,
                                int height) {
    childMode_ = windowed && child;
    childGeometry_ = QRect(left, top, width, height);
}

}  // namespace ulo
