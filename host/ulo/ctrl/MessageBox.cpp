#include "MessageBox.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <map>

#include "ulo/SpecialFolder.h"

namespace ulo {

int CreateMessageBox(CWnd* owner, const WString& caption, const WString& text, unsigned flags) {
    QMessageBox box(owner);
    box.setWindowTitle(caption.ToQString());
    box.setText(text.ToQString());
    box.setTextFormat(Qt::PlainText);
    box.setProperty(prop::kCaption, caption.ToQString());
    box.setProperty(prop::kText, text.ToQString());
    box.setProperty(prop::kFlags, flags);
    switch (flags & 0xF0) {
        case MB_ICONERROR:
            box.setIcon(QMessageBox::Critical);
            break;
        case MB_ICONQUESTION:
            box.setIcon(QMessageBox::Question);
            break;
        case MB_ICONEXCLAMATION:
            box.setIcon(QMessageBox::Warning);
            break;
        case MB_ICONINFORMATION:
            box.setIcon(QMessageBox::Information);
            break;
        default:
            break;
    }
    QMessageBox::StandardButtons buttons;
    switch (flags & 0x0F) {
        case MB_OKCANCEL:
            buttons = QMessageBox::Ok | QMessageBox::Cancel;
            break;
        case MB_YESNOCANCEL:
            buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
            break;
        case MB_YESNO:
            buttons = QMessageBox::Yes | QMessageBox::No;
            break;
        default:
            buttons = QMessageBox::Ok;
            break;
    }
    box.setStandardButtons(buttons);
    box.exec();
    switch (box.standardButton(box.clickedButton())) {
        case QMessageBox::Ok:
            return IDOK;
        case QMessageBox::Yes:
            return IDYES;
        case QMessageBox::No:
            return IDNO;
        case QMessageBox::Cancel:
            return IDCANCEL;
        default:
            // Closed without a button (Escape, close box): the cancelling answer.
            if (buttons & QMessageBox::Cancel)
                return IDCANCEL;
            if (buttons & QMessageBox::No)
                return IDNO;
            return IDOK;
    }
}

namespace {
std::map<int, std::function<void(unsigned)>>& beepListeners() {
    static std::map<int, std::function<void(unsigned)>> l;
    return l;
}
}  // namespace

void MessageBeep(unsigned type) {
    QApplication::beep();
    const auto listeners = beepListeners();
    for (const auto& [id, l] : listeners)
        l(type);
}

int AddBeepListener(std::function<void(unsigned)> listener) {
    static int next = 1;
    beepListeners()[next] = std::move(listener);
    return next++;
}

void RemoveBeepListener(int id) {
    beepListeners().erase(id);
}

bool GetOpenFileName(CWnd* owner, const WString& title, const WString& filter,
                     const WString& initialFolder, WString& path) {
    // "Label|*.ext|Label2|*.x" -> "Label (*.ext);;Label2 (*.x)"
    const QStringList parts = filter.ToQString().split(QLatin1Char('|'), Qt::SkipEmptyParts);
    QStringList filters;
    for (int i = 0; i + 1 < parts.size(); i += 2)
        filters << QStringLiteral("%1 (%2)").arg(parts[i], parts[i + 1]);
    QFileDialog dialog(owner, title.ToQString(), initialFolder.ToQString());
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    if (!filters.isEmpty())
        dialog.setNameFilters(filters);
    dialog.setProperty(prop::kFileDialog, true);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    path = WString::FromQString(dialog.selectedFiles().constFirst());
    return true;
}

QPixmap LoadASupportBmp(const WString& name) {
    WString path;
    if (!FGetSpecialFolderPathAndSubDir(kFolderSupport, name, path))
        return QPixmap();
    return QPixmap(path.ToQString());
}

}  // namespace ulo
