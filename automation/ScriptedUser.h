#pragma once
// The scripted user: a queue of steps performed, with real input events, on
// whatever modal window is in front when each step is due. A test (or the
// veld-play tool) queues the steps, then calls the factory; the steps run
// inside the dialogs' modal loops. A step that finds no such control, a
// window of the wrong kind, or a dialog left open after the last step is a
// failure: the scripted user records it and closes the open windows so the
// call returns instead of hanging.
#include <QJsonObject>
#include <QObject>
#include <QPointer>
#include <QString>
#include <deque>
#include <functional>
#include <vector>

class QTimer;
class QWidget;

namespace automation {

struct MessageRecord {
    QString caption;
    QString text;
    unsigned flags = 0;
    int answer = 0;
};

struct DialogRecord {
    QString title;
    unsigned templateId = 0;  ///< base id N of the template
    int layout = -1;
    QString help;  ///< help topic in force when it appeared (empty: none)
};

enum class WindowKind { Any, Dialog, MessageBox, FileDialog };

class ScriptedUser : public QObject {
    Q_OBJECT
public:
    ScriptedUser();
    ~ScriptedUser() override;

    // --- steps on a dialog's controls (found by control id)
    ScriptedUser& Click(unsigned id);
    ScriptedUser& Type(unsigned id, const QString& text);     ///< types at the end
    ScriptedUser& SetText(unsigned id, const QString& text);  ///< replaces the text
    ScriptedUser& Clear(unsigned id);
    ScriptedUser& Pick(unsigned id, int index);
    ScriptedUser& Pick(unsigned id, const QString& itemText);
    ScriptedUser& Tap(unsigned id, int row, int column);
    ScriptedUser& DoubleTap(unsigned id, int row, int column);
    ScriptedUser& CheckRow(unsigned id, int row);
    /// Clicks the header of @p column of a list (a list that sorts on it).
    ScriptedUser& Header(unsigned id, int column);
    ScriptedUser& Key(unsigned id, int qtKey);
    ScriptedUser& SwitchTab(unsigned id, int index);
    ScriptedUser& Press(unsigned id, double fx, double fy);
    // --- steps on the window in front
    ScriptedUser& Answer(int button);  ///< next message box: IDOK, IDYES, IDNO, IDCANCEL
    ScriptedUser& AnswerFile(const QString& path);
    ScriptedUser& CancelFile();
    ScriptedUser& Help();   ///< the help command (F1)
    ScriptedUser& Close();  ///< closes the window as its close box would
    ScriptedUser& Shot(const QString& pngPath);
    /// Looks at the window in front without acting (assertions in tests).
    ScriptedUser& Inspect(std::function<void(QWidget* window)> check);
    /// Reports the state of a control as a JSON object (see ControlState).
    ScriptedUser& Read(unsigned id);

    /// True when every step ran and nothing failed.
    bool Finished() const { return steps_.empty() && failures_.empty(); }
    const std::vector<QString>& Failures() const { return failures_; }
    const std::vector<MessageRecord>& Messages() const { return messages_; }
    const std::vector<DialogRecord>& Dialogs() const { return dialogs_; }
    int Beeps() const { return beeps_; }
    std::size_t PendingSteps() const { return steps_.size(); }
    /// A readable account of failures and pending steps for test output.
    QString Report() const;

    /// Every event as it happens (dialog, message, beep, file-dialog, control,
    /// error), in the form the veld-play tool prints.
    std::function<void(const QJsonObject&)> onEvent;
    /// Asked for more steps whenever a window is in front and none are left
    /// (a user who decides as the session goes): it may queue steps, which
    /// then run at once.
    std::function<void(QWidget* window)> whenIdle;
    /// Source line of the steps queued next (for error events).
    void SetLine(int line) { line_ = line; }

    /// Milliseconds a window may stay open after the last step.
    void SetIdleLimit(int ms) { idleLimitMs_ = ms; }

    /// The state of a control: kind, text, enabled, visible, checked, items,
    /// selected, rows.
    static QJsonObject ControlState(QWidget* control);

private:
    struct Step {
        QString what;
        WindowKind kind;
        int line;
        std::function<QString(QWidget* window)> run;  ///< returns an error or empty
    };
    ScriptedUser& Add(QString what, WindowKind kind, std::function<QString(QWidget*)> run);
    ScriptedUser& OnControl(QString what, unsigned id, std::function<QString(QWidget*)> run);
    ScriptedUser& TapCell(QString what, unsigned id, int row, int column, bool twice);
    void Tick();
    void Fail(const QString& message, int line);
    void CloseAll();
    void Emit(const QJsonObject& event);
    void NoteWindow(QWidget* window);

    std::deque<Step> steps_;
    std::vector<QString> failures_;
    std::vector<MessageRecord> messages_;
    std::vector<DialogRecord> dialogs_;
    int beeps_ = 0;
    int beepListener_ = 0;
    int line_ = 0;
    int idleLimitMs_ = 400;
    int idleMs_ = 0;
    bool closing_ = false;
    QPointer<QWidget> lastWindow_;
    std::vector<QPointer<QWidget>> seen_;
    bool stopped_ = false;  ///< no ticks (a helper that runs one step itself)
};

}  // namespace automation
