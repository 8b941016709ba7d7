#include "NewPasswordDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ulo/ctrl/Controls.h"
#include "ulo/ctrl/MessageBox.h"
#include "ulo/ctrl/Win.h"

namespace {
QLineEdit* passwordEdit(QWidget* parent, unsigned id) {
    auto* e = new QLineEdit(parent);
    e->setEchoMode(QLineEdit::Password);
    e->setValidator(new ulo::CUppercaseValidator(e));  // as the password dialog stores it
    e->setProperty(ulo::prop::kCtrlId, id);
    return e;
}
}  // namespace

NewPasswordDialog::NewPasswordDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Save with password"));
    password_ = passwordEdit(this, kIdPassword);
    repeat_ = passwordEdit(this, kIdRepeat);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Password:"), password_);
    form->addRow(QStringLiteral("Again:"), repeat_);
    auto* note = new QLabel(
        QStringLiteral("Letters are stored as capitals, as the drawing will ask for them."), this);
    note->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    ok_->setProperty(ulo::prop::kCtrlId, kIdOk);
    ok_->setEnabled(false);
    buttons->button(QDialogButtonBox::Cancel)->setProperty(ulo::prop::kCtrlId, kIdCancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    for (QLineEdit* e : {password_, repeat_})
        connect(e, &QLineEdit::textChanged, this, [this] {
            ok_->setEnabled(!password_->text().isEmpty() && !repeat_->text().isEmpty());
        });
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(note);
    layout->addWidget(buttons);
}

QString NewPasswordDialog::Password() const {
    return password_->text();
}

void NewPasswordDialog::accept() {
    if (password_->text().isEmpty())
        return;
    if (password_->text() != repeat_->text()) {
        ulo::CreateMessageBox(this, ulo::WString::FromQString(windowTitle()),
                              L"The two passwords differ. Type the same one twice.",
                              ulo::kWarningFlags);
        repeat_->clear();
        repeat_->setFocus();
        return;
    }
    QDialog::accept();
}

QString NewPasswordDialog::Ask(QWidget* parent) {
    NewPasswordDialog dialog(parent);
    return dialog.exec() == QDialog::Accepted ? dialog.Password() : QString();
}
