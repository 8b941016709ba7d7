#include "Controls.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <map>
#include <string>
#include <string_view>

#include "Dialog.h"
#include "FieldInput.h"
#include "MessageBox.h"
#include "Win.h"
#include "ulo/Xlate.h"

namespace ulo {

// The names the controls declare their properties by (Controls.h).
static_assert(std::string_view(prop::kCtrlId) == "veldCtrlId" &&
              std::string_view(prop::kCtrlIndex) == "veldCtrlIndex");

QColor ColorFromRef(GColorRef ref) {
    return QColor(int(ref & 0xFF), int((ref >> 8) & 0xFF), int((ref >> 16) & 0xFF));
}

GColorRef RefFromColor(const QColor& c) {
    return GColorRef(c.red()) | (GColorRef(c.green()) << 8) | (GColorRef(c.blue()) << 16);
}

unsigned GetDlgCtrlID(const QWidget* widget) {
    return widget ? widget->property(prop::kCtrlId).toUInt() : 0;
}

QWidget* FindControl(const QWidget* window, unsigned id) {
    if (!window)
        return nullptr;
    // A dialog of the toolkit knows its controls by id.
    if (const auto* dialog = qobject_cast<const CWSizeDialog*>(window))
        return dialog->GetDlgItem(id);
    const auto children = window->findChildren<QWidget*>();
    for (QWidget* w : children)
        if (GetDlgCtrlID(w) == id)
            return w;
    return nullptr;
}

// ---------------------------------------------------------------- CColButton

namespace {
QColor schemeColor(int scheme, bool text) {
    switch (scheme) {
        case 0:
            return text ? QColor(0x10, 0x3c, 0x8c) : QColor(0xdc, 0xe8, 0xf8);
        case 1:
            return text ? QColor(0x40, 0x40, 0x40) : QColor(0x90, 0x90, 0x90);
        case 3:
            return text ? QColor(0x20, 0x20, 0x20) : QColor(0xd8, 0xd8, 0xd8);
        default:
            return text ? QColor(0x20, 0x20, 0x20) : QColor(0xff, 0xff, 0xff);
    }
}

/// The palette of a scheme pair, made once: it sets only the scheme's roles,
/// so that a button keeps the rest of the palette it inherits.
const QPalette& schemePalette(int textScheme, int backScheme) {
    static std::map<std::pair<int, int>, QPalette> made;
    const auto [it, added] = made.try_emplace({textScheme, backScheme});
    if (added) {
        QPalette& p = it->second;
        p.setColor(QPalette::ButtonText, schemeColor(textScheme, true));
        p.setColor(QPalette::Button, schemeColor(backScheme, false));
        p.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x9a, 0x9a, 0x9a));
    }
    return it->second;
}
}  // namespace

CColButton::CColButton(QWidget* parent) : QPushButton(parent) {
    setAutoDefault(false);
}

void CColButton::SetBtnColor(int textScheme, int backScheme) {
    if (text_ == textScheme && back_ == backScheme)
        return;
    text_ = textScheme;
    back_ = backScheme;
    // A palette, not a style sheet: a style sheet is parsed and polished for
    // every button of every dialog that opens, which costs more than the rest
    // of opening a small dialog.
    setPalette(schemePalette(textScheme, backScheme));
}

void CColButton::SetImageList(const QPixmap& image) {
    setIcon(QIcon(image));
    setIconSize(image.size());
}

void CColButton::SetIconOnlyState(bool iconOnly) {
    if (iconOnly)
        setText(QString());
    setFlat(iconOnly);
}

// ----------------------------------------------------------- keyboard edits

CCEBaseKeybEdit::CCEBaseKeybEdit(QWidget* parent) : QLineEdit(parent) {
    setMaxLength(kMaxChars);
    // Every way text comes in (keys, an input method's commit, a paste by
    // shortcut or menu, a drop) inserts what fits and reports the rest here.
    connect(this, &QLineEdit::inputRejected, this, &CCEBaseKeybEdit::OnInputRejected);
}

QString CCEBaseKeybEdit::LimitMessage(int maxChars) {
    return FormatMessage(WString(L"This field holds at most {1} characters."),
                         WString(std::to_wstring(maxChars)))
        .ToQString();
}

void CCEBaseKeybEdit::OnInputRejected() {
    // A validator's refusal of a key arrives here too; only input that met a
    // full edit is the limit's doing.
    if (text().size() < maxLength())
        return;
    MessageBeep(MB_ICONEXCLAMATION);
    QToolTip::showText(mapToGlobal(cursorRect().bottomLeft()), LimitMessage(maxLength()), this);
}

void CCEBaseKeybEdit::SetKeyb(void* keyboard) {
    const bool takenAway = keyboard_ && !keyboard;
    keyboard_ = keyboard;
    if (takenAway)
        Q_EMIT keyboardTakenAway();
}

void CCEBaseKeybEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    static int onScreenKeyboard;  // stands for the keyboard window of a touch device
    SetKeyb(&onScreenKeyboard);
}

void CCEBaseKeybEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (keyboard_)
        SetKeyb(nullptr);
}

void CCEBaseKeybEdit::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && keyboard_) {
        SetKeyb(nullptr);
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

QValidator::State CUppercaseValidator::validate(QString& input, int& pos) const {
    const QString before = input.left(pos).toUpper();
    input = before + input.mid(pos).toUpper();
    pos = static_cast<int>(before.size());
    return Acceptable;
}

namespace {
/// Keeps a number edit's text in the notation its field is read in.
class NumberNotationValidator : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& input, int& pos) const override {
        ToFieldNotation(input, pos);
        return Acceptable;
    }
};
}  // namespace

CCEEditKeybNum::CCEEditKeybNum(QWidget* parent) : CCEBaseKeybEdit(parent) {
    setInputMethodHints(Qt::ImhFormattedNumbersOnly);
    setValidator(new NumberNotationValidator(this));
}

CCEEditKeybTxt::CCEEditKeybTxt(QWidget* parent) : CCEBaseKeybEdit(parent) {
    setInputMethodHints(Qt::ImhNoPredictiveText);
}

// --------------------------------------------------------------------- combo

CCEBaseKeybCombo::CCEBaseKeybCombo(QWidget* parent) : QComboBox(parent) {
    connect(this, &QComboBox::activated, this, &CCEBaseKeybCombo::selEndOk);
}

int CCEBaseKeybCombo::AddString(const QString& text, quintptr data) {
    int index = count();
    if (sorted_) {
        index = 0;
        while (index < count() && QString::localeAwareCompare(itemText(index), text) <= 0)
            ++index;
    }
    insertItem(index, text, QVariant::fromValue<quintptr>(data));
    return index;
}

quintptr CCEBaseKeybCombo::GetItemDataAt(int index) const {
    return (index >= 0 && index < count()) ? itemData(index).value<quintptr>() : 0;
}

int CCEBaseKeybCombo::FindItemData(quintptr data) const {
    for (int i = 0; i < count(); ++i)
        if (GetItemDataAt(i) == data)
            return i;
    return -1;
}

// -------------------------------------------------------------- colour static

CColorStatic::CColorStatic(QWidget* parent, GColorRef color) : QFrame(parent), color_(color) {}

void CColorStatic::SetColor(GColorRef color) {
    if (color == color_)
        return;
    color_ = color;
    update();
}

void CColorStatic::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    QPainter p(this);
    p.fillRect(contentsRect(), ColorFromRef(color_));
}

// ---------------------------------------------------------------------- grid

CCEMSGridCtrl::CCEMSGridCtrl(int rows, int columns, QWidget* parent)
    : QTableWidget(rows, columns, parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    // The whole check box cell is the touch target: a tap anywhere in it toggles.
    connect(this, &QTableWidget::cellClicked, this, [this](int row, int column) {
        if (column == 0)
            ToggleCheck(row);
    });
}

int CCEMSGridCtrl::AddRow() {
    return AddRows(1);
}

int CCEMSGridCtrl::AddRows(int n) {
    const int first = rowCount();
    setRowCount(first + n);
    for (int row = first; row < first + n; ++row)
        for (int c = 0; c < columnCount(); ++c) {
            auto* cell = new QTableWidgetItem();
            if (c == 0) {  // made before it is in the grid: no change to report to the view
                cell->setFlags(Qt::ItemIsEnabled);
                cell->setCheckState(Qt::Unchecked);
            }
            setItem(row, c, cell);
        }
    return first;
}

void CCEMSGridCtrl::DeleteRow(int row) {
    removeRow(row);
}

void CCEMSGridCtrl::SetCheck(int row, bool checked) {
    if (auto* it = item(row, 0))
        it->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

bool CCEMSGridCtrl::GetCheck(int row) const {
    const auto* it = item(row, 0);
    return it && it->checkState() == Qt::Checked;
}

void CCEMSGridCtrl::ToggleCheck(int row) {
    SetCheck(row, !GetCheck(row));
}

void CCEMSGridCtrl::keyPressEvent(QKeyEvent* event) {
    // The check cell takes no focus of its own (it is not selectable): Space
    // checks the row the focus is on, whichever of its cells that is.
    const int row = currentRow();
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier && row >= 0 &&
        columnCount() > 0) {
        ToggleCheck(row);
        event->accept();
        return;
    }
    QTableWidget::keyPressEvent(event);
}

void CCEMSGridCtrl::SetItemPtr(int row, quintptr data) {
    if (auto* it = item(row, 0))
        it->setData(Qt::UserRole, QVariant::fromValue<quintptr>(data));
}

quintptr CCEMSGridCtrl::GetItemPtr(int row) const {
    const auto* it = item(row, 0);
    return it ? it->data(Qt::UserRole).value<quintptr>() : 0;
}

void CCEMSGridCtrl::SetCellText(int row, int column, const QString& text) {
    if (auto* it = item(row, column))
        it->setText(text);
}

}  // namespace ulo
