#pragma once
// Controls of the toolkit, on Qt widgets. Every control carries its id
// (property prop::kCtrlId, WidgetProperties.h) so code and tests find it by id.
// The classes below declare that property and prop::kCtrlIndex (as
// QVariant: invalid until a dialog sets them), so that building a dialog
// sets them without adding dynamic properties, each of which costs a lookup
// through all the class's properties and an event; other widgets carry them
// as dynamic properties.
#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QValidator>

#include "ulo/WString.h"

namespace ulo {

/// 32-bit colour 0x00BBGGRR.
using GColorRef = std::uint32_t;
QColor ColorFromRef(GColorRef ref);
GColorRef RefFromColor(const QColor& color);

/// Push button drawn in one of the toolkit's colour schemes.
///
/// Scheme indices (text, background): 0 dark blue, 1 dark grey, 2 white,
/// 3 light grey. OK and Cancel use (0, 2): blue text on white; other buttons
/// (2, 2) use the neutral white face with dark text; (2, 3) a grey face.
class CColButton : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(QVariant veldCtrlId MEMBER ctrlId_)
    Q_PROPERTY(QVariant veldCtrlIndex MEMBER ctrlIndex_)
public:
    explicit CColButton(QWidget* parent = nullptr);
    void SetBtnColor(int textScheme, int backScheme);
    int GetTextScheme() const { return text_; }
    int GetBackScheme() const { return back_; }
    void SetImageList(const QPixmap& image);
    void SetIconOnlyState(bool iconOnly);

private:
    int text_ = -1;
    int back_ = -1;
    QVariant ctrlId_, ctrlIndex_;
};

/// Check box of the toolkit.
class CCEBaseButton : public QCheckBox {
    Q_OBJECT
    Q_PROPERTY(QVariant veldCtrlId MEMBER ctrlId_)
    Q_PROPERTY(QVariant veldCtrlIndex MEMBER ctrlIndex_)
public:
    using QCheckBox::QCheckBox;

private:
    QVariant ctrlId_, ctrlIndex_;
};

/// Radio button of the toolkit; buttons from one with kGroupStart to the next
/// form an exclusive group.
class CCERadioButton : public QRadioButton {
    Q_OBJECT
    Q_PROPERTY(QVariant veldCtrlId MEMBER ctrlId_)
    Q_PROPERTY(QVariant veldCtrlIndex MEMBER ctrlIndex_)
public:
    using QRadioButton::QRadioButton;

private:
    QVariant ctrlId_, ctrlIndex_;
};

/// Static text of the toolkit.
class CCEStatic : public QLabel {
    Q_OBJECT
    Q_PROPERTY(QVariant veldCtrlId MEMBER ctrlId_)
    Q_PROPERTY(QVariant veldCtrlIndex MEMBER ctrlIndex_)
public:
    using QLabel::QLabel;

private:
    QVariant ctrlId_, ctrlIndex_;
};

/// Group box of the toolkit.
class CCEGroupBox : public QGroupBox {
    Q_OBJECT
    Q_PROPERTY(QVariant veldCtrlId MEMBER ctrlId_)
    Q_PROPERTY(QVariant veldCtrlIndex MEMBER ctrlIndex_)
public:
    using QGroupBox::QGroupBox;

private:
    QVariant ctrlId_, ctrlIndex_;
};

/// Edit that brings up the on-screen keyboard while it has the focus.
/// SetKeyb(non-null) is called when the keyboard comes up (focus in);
/// SetKeyb(nullptr) when it is taken away, which ends the edit: on focus loss
/// and when Return is pressed.
///
/// An edit holds at most kMaxChars characters (maxLength). Input that does
/// not fit, typed, pasted or dropped, keeps what fits and is refused visibly:
/// a beep (MessageBeep) and a tooltip at the edit that names the limit.
class CCEBaseKeybEdit : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(QVariant veldCtrlId MEMBER ctrlId_)
    Q_PROPERTY(QVariant veldCtrlIndex MEMBER ctrlIndex_)
public:
    /// The most characters (UTF-16 units) an edit of the toolkit holds.
    static constexpr int kMaxChars = 32767;

    explicit CCEBaseKeybEdit(QWidget* parent = nullptr);
    virtual void SetKeyb(void* keyboard);
    bool HasKeyb() const { return keyboard_ != nullptr; }
    /// The tooltip shown when input does not fit in @p maxChars characters.
    static QString LimitMessage(int maxChars);

Q_SIGNALS:
    /// The keyboard was taken away: the user has left the edit.
    void keyboardTakenAway();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void OnInputRejected();

    void* keyboard_ = nullptr;
    QVariant ctrlId_, ctrlIndex_;
};

/// Keeps every letter of an edit a capital as it is typed (ES_UPPERCASE).
/// The cursor stays after what was typed, also where a letter grows ("ß"
/// becomes "SS").
class CUppercaseValidator : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& input, int& pos) const override;
};

/// Number entry: numeric keyboard hints. The field shows what will be read:
/// what is typed is kept in the notation fields are read in, see
/// ulo::ToFieldNotation (a decimal comma becomes '.', digits of other scripts
/// become 0 to 9, one point: the separator typed last; "1,5" reads as 1.5).
class CCEEditKeybNum : public CCEBaseKeybEdit {
    Q_OBJECT
public:
    explicit CCEEditKeybNum(QWidget* parent = nullptr);
};

/// Text entry.
class CCEEditKeybTxt : public CCEBaseKeybEdit {
    Q_OBJECT
public:
    explicit CCEEditKeybTxt(QWidget* parent = nullptr);
};

/// Drop-down list with a pointer-sized item data per entry.
class CCEBaseKeybCombo : public QComboBox {
    Q_OBJECT
    Q_PROPERTY(QVariant veldCtrlId MEMBER ctrlId_)
    Q_PROPERTY(QVariant veldCtrlIndex MEMBER ctrlIndex_)
public:
    explicit CCEBaseKeybCombo(QWidget* parent = nullptr);
    /// Appends (or, when sorted, inserts in order) and returns the index.
    int AddString(const QString& text, quintptr data = 0);
    quintptr GetItemDataAt(int index) const;
    template <class T>
    T* GetItemPtr(int index) const {
        return reinterpret_cast<T*>(GetItemDataAt(index));
    }
    int FindItemData(quintptr data) const;
    void SetSorted(bool sorted) { sorted_ = sorted; }

Q_SIGNALS:
    /// The user ended a selection (the classic "selection ended OK").
    void selEndOk(int index);

private:
    bool sorted_ = false;
    QVariant ctrlId_, ctrlIndex_;
};

/// A static that paints its client area in one colour.
class CColorStatic : public QFrame {
    Q_OBJECT
    Q_PROPERTY(QVariant veldCtrlId MEMBER ctrlId_)
    Q_PROPERTY(QVariant veldCtrlIndex MEMBER ctrlIndex_)
public:
    explicit CColorStatic(QWidget* parent = nullptr, GColorRef color = 0);
    void SetColor(GColorRef color);
    GColorRef GetColor() const { return color_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    GColorRef color_;
    QVariant ctrlId_, ctrlIndex_;
};

/// Grid of rows with a check box column (column 1) and text columns. A tap
/// anywhere in a check cell, or Space on the focused row, toggles its box.
class CCEMSGridCtrl : public QTableWidget {
    Q_OBJECT
    Q_PROPERTY(QVariant veldCtrlId MEMBER ctrlId_)
    Q_PROPERTY(QVariant veldCtrlIndex MEMBER ctrlIndex_)
public:
    CCEMSGridCtrl(int rows, int columns, QWidget* parent = nullptr);
    void SetAutoAddRows(bool on) { autoAdd_ = on; }
    int AddRow();
    /// Appends @p n rows at once (one insertion for the view, not one per
    /// row); returns the first of them.
    int AddRows(int n);
    void DeleteRow(int row);
    void SetCheck(int row, bool checked);
    bool GetCheck(int row) const;
    void SetItemPtr(int row, quintptr data);
    quintptr GetItemPtr(int row) const;
    void SetCellText(int row, int column, const QString& text);
    /// Toggles the check box of @p row as a tap on it does.
    void ToggleCheck(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool autoAdd_ = true;
    QVariant ctrlId_, ctrlIndex_;
};

}  // namespace ulo

using ulo::CCEBaseButton;
using ulo::CCEBaseKeybCombo;
using ulo::CCEBaseKeybEdit;
using ulo::CCEEditKeybNum;
using ulo::CCEEditKeybTxt;
using ulo::CCEMSGridCtrl;
using ulo::CColButton;
using ulo::CColorStatic;
