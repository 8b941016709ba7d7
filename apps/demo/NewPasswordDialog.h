#pragma once
// Asks for the password that seals a drawing: twice, compared, and under the
// rule of the dialog that will ask for it when the drawing is opened again
// (every letter a capital), so a drawing sealed here always opens again.
#include <QDialog>

class QLineEdit;
class QPushButton;

class NewPasswordDialog : public QDialog {
    Q_OBJECT
public:
    /// Control ids, for the scripted user.
    static constexpr unsigned kIdPassword = 1;
    static constexpr unsigned kIdRepeat = 2;
    static constexpr unsigned kIdOk = 3;
    static constexpr unsigned kIdCancel = 4;

    explicit NewPasswordDialog(QWidget* parent);
    QString Password() const;

    /// Asks; an empty text when the user cancels.
    static QString Ask(QWidget* parent);

    void accept() override;

private:
    QLineEdit* password_;
    QLineEdit* repeat_;
    QPushButton* ok_;
};
