#pragma once
// A user who decides as the session goes: whenever a window is in front and
// nothing is planned, picks one step for it at random (from a seed) and
// writes the step down as a veld-play statement, so that any session can be
// replayed with veld-play.
//
// On a dialog: a text from the hostile corpus or a plain number into an
// edit, a click on a button, check box or radio button, an item of a combo,
// a cell of a list, a tab; after its budget of steps, or by chance, the
// dialog is ended with its OK, its Cancel or the close box. Message boxes get
// one of their buttons, file dialogs are cancelled.
#include <QPointer>
#include <QStringList>
#include <map>
#include <mutex>
#include <random>

class QWidget;

namespace automation {
class ScriptedUser;
}

namespace sessions {

class RandomUser {
public:
    /// Drives @p user from now on; @p steps is the budget of steps on each
    /// dialog before it is ended.
    RandomUser(automation::ScriptedUser& user, unsigned seed, const QStringList& corpus, int steps);
    ~RandomUser();
    RandomUser(const RandomUser&) = delete;
    RandomUser& operator=(const RandomUser&) = delete;

    /// The statements performed so far, one a line, indented as the steps of
    /// a veld-play call. Safe to call from another thread (a watchdog).
    QStringList Steps() const {
        const std::lock_guard<std::mutex> lock(mutex_);
        return steps_;
    }
    /// The code the first dialog ended with (-1 while it is open or when
    /// none appeared).
    int FirstDialogResult() const { return firstResult_; }
    bool SawDialog() const { return sawDialog_; }

private:
    void Next(QWidget* window);
    void OnDialog(QWidget* dialog);
    void OnMessageBox(QWidget* box);
    void End(QWidget* dialog);
    void Record(const QString& statement) {
        const std::lock_guard<std::mutex> lock(mutex_);
        steps_ << QStringLiteral("  ") + statement;
    }
    int Below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }
    QString AnyText();

    automation::ScriptedUser& user_;
    std::mt19937 rng_;
    QStringList corpus_;
    int budget_;
    mutable std::mutex mutex_;
    QStringList steps_;
    std::map<QWidget*, int> stepsOn_;
    QPointer<QWidget> first_;
    int firstResult_ = -1;
    bool sawDialog_ = false;
};

}  // namespace sessions
