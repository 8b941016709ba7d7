#include "RandomUser.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>

#include "ScriptParser.h"
#include "automation/ScriptedUser.h"
#include "ulo/DialogTemplate.h"
#include "ulo/ctrl/Win.h"

namespace sessions {

namespace {

unsigned idOf(const QWidget* w) {
    return w->property(ulo::prop::kCtrlId).toUInt();
}

/// A control the user can act on: it has an id, shows and takes input.
bool actionable(const QWidget* w, const QWidget* window) {
    const unsigned id = idOf(w);
    if (id == 0 || id == ulo::kStaticId || !w->isVisibleTo(window) || !w->isEnabled())
        return false;
    if (qobject_cast<const QLabel*>(w) || qobject_cast<const QGroupBox*>(w))
        return false;
    if (const auto* e = qobject_cast<const QLineEdit*>(w))
        return !e->isReadOnly();
    return true;
}

QWidget* control(QWidget* window, unsigned id) {
    QWidget* w = ulo::FindControl(window, id);
    return w && actionable(w, window) ? w : nullptr;
}

}  // namespace

RandomUser::RandomUser(automation::ScriptedUser& user, unsigned seed, const QStringList& corpus,
                       int steps)
    : user_(user), rng_(seed), corpus_(corpus), budget_(steps) {
    user_.whenIdle = [this](QWidget* window) { Next(window); };
}

RandomUser::~RandomUser() {
    user_.whenIdle = nullptr;
}

QString RandomUser::AnyText() {
    static const char* const plain[] = {"0", "1", "-1", "2.5", "-0.001", "10", "1e6", "12345.678"};
    if (!corpus_.isEmpty() && Below(2) == 0)
        return corpus_[Below(static_cast<int>(corpus_.size()))];
    return QString::fromLatin1(plain[Below(static_cast<int>(std::size(plain)))]);
}

void RandomUser::Next(QWidget* window) {
    if (qobject_cast<QMessageBox*>(window))
        OnMessageBox(window);
    else if (auto* files = qobject_cast<QFileDialog*>(window)) {
        Q_UNUSED(files);
        user_.CancelFile();
        Record(QStringLiteral("file cancel"));
    } else {
        OnDialog(window);
    }
}

void RandomUser::OnMessageBox(QWidget* window) {
    auto* box = static_cast<QMessageBox*>(window);
    const struct {
        QMessageBox::StandardButton button;
        int answer;
        const char* word;
    } answers[] = {{QMessageBox::Ok, ulo::IDOK, "ok"},
                   {QMessageBox::Yes, ulo::IDYES, "yes"},
                   {QMessageBox::No, ulo::IDNO, "no"},
                   {QMessageBox::Cancel, ulo::IDCANCEL, "cancel"}};
    std::vector<int> present;
    for (int i = 0; i < 4; ++i)
        if (box->button(answers[i].button))
            present.push_back(i);
    if (present.empty()) {
        user_.Close();
        Record(QStringLiteral("close"));
        return;
    }
    const auto& a = answers[present[Below(static_cast<int>(present.size()))]];
    user_.Answer(a.answer);
    Record(QStringLiteral("answer ") + QLatin1String(a.word));
}

void RandomUser::OnDialog(QWidget* dialog) {
    if (!sawDialog_) {
        sawDialog_ = true;
        first_ = dialog;
        if (auto* d = qobject_cast<QDialog*>(dialog))
            QObject::connect(d, &QDialog::finished, d, [this](int result) {
                if (firstResult_ < 0)
                    firstResult_ = result;
            });
    }
    int& done = stepsOn_[dialog];
    // Past the budget, or now and then, the dialog is ended.
    if (done >= budget_ || Below(12) == 0)
        return End(dialog);
    ++done;
    // OK and Cancel end the dialog: End chooses them, the steps before do not.
    const unsigned ok = dialog->property(ulo::prop::kOkId).toUInt();
    const unsigned cancel = dialog->property(ulo::prop::kCancelId).toUInt();
    std::vector<QWidget*> controls;
    for (QWidget* w : dialog->findChildren<QWidget*>())
        if (actionable(w, dialog) && idOf(w) != ok && idOf(w) != cancel)
            controls.push_back(w);
    if (controls.empty())
        return End(dialog);
    QWidget* c = controls[static_cast<std::size_t>(Below(static_cast<int>(controls.size())))];
    const unsigned id = idOf(c);
    const QString n = QString::number(id);
    if (qobject_cast<QLineEdit*>(c)) {
        const QString text = AnyText();
        user_.SetText(id, text);
        Record(QStringLiteral("set ") + n + QLatin1Char(' ') + veldplay::QuoteText(text));
    } else if (qobject_cast<QAbstractButton*>(c)) {
        user_.Click(id);
        Record(QStringLiteral("click ") + n);
    } else if (auto* combo = qobject_cast<QComboBox*>(c)) {
        if (combo->count() == 0)
            return End(dialog);
        const int index = Below(combo->count());
        user_.Pick(id, index);
        Record(QStringLiteral("pick %1 %2").arg(id).arg(index));
    } else if (auto* view = qobject_cast<QAbstractItemView*>(c)) {
        const int rows = view->model() ? view->model()->rowCount() : 0;
        const int columns = view->model() ? view->model()->columnCount() : 0;
        if (rows == 0 || columns == 0)
            return End(dialog);
        const int row = Below(rows), column = Below(columns);
        user_.Tap(id, row, column);
        Record(QStringLiteral("tap %1 %2 %3").arg(id).arg(row).arg(column));
    } else if (auto* tabs = qobject_cast<QTabBar*>(c)) {
        const int index = Below(tabs->count());
        user_.SwitchTab(id, index);
        Record(QStringLiteral("tab %1 %2").arg(id).arg(index));
    } else {
        // A control the dialog draws itself (colour strips, swatches): a
        // press anywhere on it, as a finger would.
        const double fx = Below(100) / 100.0, fy = Below(100) / 100.0;
        user_.Press(id, fx, fy);
        Record(QStringLiteral("press %1 %2 %3").arg(id).arg(fx).arg(fy));
    }
}

void RandomUser::End(QWidget* dialog) {
    const unsigned ok = dialog->property(ulo::prop::kOkId).toUInt();
    const unsigned cancel = dialog->property(ulo::prop::kCancelId).toUInt();
    // OK may be refused and the dialog stay: past the budget the user stops trying it.
    const int over = stepsOn_[dialog]++ - budget_;
    const int pick = Below(over > 2 ? 2 : 3);
    if (pick == 2 && control(dialog, ok)) {
        user_.Click(ok);
        Record(QStringLiteral("click %1").arg(ok));
    } else if (pick == 1 && control(dialog, cancel)) {
        user_.Click(cancel);
        Record(QStringLiteral("click %1").arg(cancel));
    } else {
        user_.Close();
        Record(QStringLiteral("close"));
    }
}

}  // namespace sessions
