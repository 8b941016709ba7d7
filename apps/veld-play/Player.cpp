#include "Player.h"

#include <QJsonDocument>
#include <cmath>

#include "PlayHost.h"
#include "automation/ScriptNumbers.h"
#include "automation/ScriptedUser.h"
#include "linetypes/LtypePickers.h"
#include "ulo/NumberText.h"
#include "ulo/PalmDevice.h"
#include "ulo/ctrl/Win.h"

namespace veldplay {

using automation::ReadDouble;
using automation::ReadInt;
using automation::ReadUnsigned;

catalogue::Call NewCall(IVELDDlgFactory* factory, PlayHost& host) {
    return catalogue::Call{.factory = factory,
                           .cad = host.GetCAD(),
                           .view = host.GetView(),
                           .selLtype = &ShowDlgSelLtype,
                           .loadLtype = &ShowDlgLoadLtype};
}

QStringList BuiltOperations(IVELDDlgFactory* factory, PlayHost& host) {
    QStringList built;
    for (const catalogue::Operation& op : catalogue::Operations()) {
        bool shown = false;
        automation::ScriptedUser user;
        user.whenIdle = [&](QWidget*) {
            shown = true;
            user.Close();  // closed as its close box would: nothing changes
        };
        catalogue::Call call = NewCall(factory, host);
        op.Run(call);
        if (shown)
            built << QLatin1String(op.name);
    }
    built.sort();
    return built;
}

QString PictureScript(const QStringList& operations, const QString& dir) {
    QString script;
    for (int layout = 0; layout < 4; ++layout) {
        script += QStringLiteral("layout %1\n").arg(layout);
        for (const QString& name : operations) {
            const catalogue::Operation* op = catalogue::Find(name);
            for (const catalogue::Picture& picture : op->Pictures()) {
                script += QStringLiteral("call ") + name;
                for (const catalogue::Argument& a : op->pictureArguments)
                    script += QLatin1Char(' ') + QLatin1String(a.name) + QLatin1Char('=') +
                              QuoteText(QString::fromUtf8(a.value));
                script += QLatin1Char('\n');
                for (const QString& step :
                     picture.steps.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
                    script += QStringLiteral("  ") + step + QLatin1Char('\n');
                const QString file = QStringLiteral("%1/%2-%3.png")
                                         .arg(dir, QString::fromUtf8(picture.file))
                                         .arg(layout);
                script += QStringLiteral("  shot ") + QuoteText(file) +
                          QStringLiteral("\n  close\nend\n");
            }
        }
    }
    return script;
}

Player::Player(IVELDDlgFactory* factory, PlayHost* host, QTextStream& out)
    : factory_(factory), host_(host), out_(out) {}

void Player::Print(const QJsonObject& event, const QMap<QString, double>& numbers) {
    QByteArray line = QJsonDocument(event).toJson(QJsonDocument::Compact);
    line.chop(1);  // the closing brace: the numbers follow
    for (auto it = numbers.begin(); it != numbers.end(); ++it) {
        line += ",\"" + it.key().toLatin1() + "\":";  // the names are plain identifiers
        line += std::isfinite(it.value())
                    ? QString::fromStdWString(ulo::ExactText(it.value())).toLatin1()
                    : QByteArrayLiteral("null");
    }
    line += '}';
    out_ << QString::fromUtf8(line) << '\n';
    out_.flush();
}

void Player::Error(int line, const QString& message) {
    ++errors_;
    Print(QJsonObject{{QStringLiteral("event"), QStringLiteral("error")},
                      {QStringLiteral("line"), line},
                      {QStringLiteral("message"), message}});
}

namespace {

int keyByName(const QString& name) {
    static const QMap<QString, int> keys = {
        {QStringLiteral("F2"), Qt::Key_F2},
        {QStringLiteral("Delete"), Qt::Key_Delete},
        {QStringLiteral("Return"), Qt::Key_Return},
        {QStringLiteral("Escape"), Qt::Key_Escape},
        {QStringLiteral("Up"), Qt::Key_Up},
        {QStringLiteral("Down"), Qt::Key_Down},
        {QStringLiteral("Left"), Qt::Key_Left},
        {QStringLiteral("Right"), Qt::Key_Right},
        {QStringLiteral("Tab"), Qt::Key_Tab},
        {QStringLiteral("Backspace"), Qt::Key_Backspace},
    };
    return keys.value(name, 0);
}

/// The values of a step's words after its verb.
struct StepValues {
    unsigned id = 0;
    std::vector<int> wholes;
    std::vector<double> fractions;
    std::vector<Word> words;
};

/// Reads the words after a step's verb as @p form says, one kind a word:
/// ID (a control id), ROW, COL, INDEX (whole numbers), FX, FY (fractions
/// from 0 to 1), ITEM (a quoted text, or else an INDEX); any other kind is a
/// word taken as it is. Returns what is wrong, naming the word's kind.
QString readStep(const Statement& s, const QString& form, StepValues& v) {
    const QString& verb = s.words[0].text;
    const QStringList kinds = form.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (s.words.size() != static_cast<std::size_t>(kinds.size()) + 1)
        return kinds.isEmpty() ? QStringLiteral("bad step: %1 takes no words").arg(verb)
                               : QStringLiteral("bad step: %1 takes %2").arg(verb, form);
    for (qsizetype i = 0; i < kinds.size(); ++i) {
        const Word& word = s.words[static_cast<std::size_t>(i) + 1];
        QString kind = kinds[i];
        if (kind == QLatin1String("ITEM")) {
            if (word.quoted) {
                v.words.push_back(word);
                continue;
            }
            kind = QStringLiteral("INDEX");
        }
        const bool id = kind == QLatin1String("ID");
        const bool whole = kind == QLatin1String("ROW") || kind == QLatin1String("COL") ||
                           kind == QLatin1String("INDEX");
        const bool fraction = kind == QLatin1String("FX") || kind == QLatin1String("FY");
        QString why;
        if ((id || whole || fraction) && word.quoted) {
            why = QStringLiteral("\"%1\" is a quoted text, not a number").arg(word.text);
        } else if (id) {
            if (const auto n = ReadUnsigned(word.text, why))
                v.id = *n;
        } else if (whole) {
            if (const auto n = ReadInt(word.text, why))
                v.wholes.push_back(*n);
        } else if (fraction) {
            if (const auto f = ReadDouble(word.text, why)) {
                if (*f < 0.0 || *f > 1.0)
                    why = QStringLiteral("\"%1\" is not a fraction from 0 to 1").arg(word.text);
                else
                    v.fractions.push_back(*f);
            }
        } else {
            v.words.push_back(word);
        }
        if (!why.isEmpty())
            return QStringLiteral("%1 %2: %3").arg(verb, kind, why);
    }
    return {};
}

using automation::ScriptedUser;

/// A step: the kinds of its words (see readStep) and what it queues.
struct StepForm {
    const char* form;
    QString (*queue)(ScriptedUser& user, const StepValues& v);
};

const QMap<QString, StepForm>& stepForms() {
    static const QMap<QString, StepForm> forms = {
        {QStringLiteral("click"),
         {"ID",
          [](ScriptedUser& u, const StepValues& v) {
              u.Click(v.id);
              return QString();
          }}},
        {QStringLiteral("type"),
         {"ID TEXT",
          [](ScriptedUser& u, const StepValues& v) {
              u.Type(v.id, v.words[0].text);
              return QString();
          }}},
        {QStringLiteral("set"),
         {"ID TEXT",
          [](ScriptedUser& u, const StepValues& v) {
              u.SetText(v.id, v.words[0].text);
              return QString();
          }}},
        {QStringLiteral("clear"),
         {"ID",
          [](ScriptedUser& u, const StepValues& v) {
              u.Clear(v.id);
              return QString();
          }}},
        {QStringLiteral("pick"),
         {"ID ITEM",
          [](ScriptedUser& u, const StepValues& v) {
              if (v.words.empty())
                  u.Pick(v.id, v.wholes[0]);
              else
                  u.Pick(v.id, v.words[0].text);
              return QString();
          }}},
        {QStringLiteral("tap"),
         {"ID ROW COL",
          [](ScriptedUser& u, const StepValues& v) {
              u.Tap(v.id, v.wholes[0], v.wholes[1]);
              return QString();
          }}},
        {QStringLiteral("dtap"),
         {"ID ROW COL",
          [](ScriptedUser& u, const StepValues& v) {
              u.DoubleTap(v.id, v.wholes[0], v.wholes[1]);
              return QString();
          }}},
        {QStringLiteral("check"),
         {"ID ROW",
          [](ScriptedUser& u, const StepValues& v) {
              u.CheckRow(v.id, v.wholes[0]);
              return QString();
          }}},
        {QStringLiteral("header"),
         {"ID COL",
          [](ScriptedUser& u, const StepValues& v) {
              u.Header(v.id, v.wholes[0]);
              return QString();
          }}},
        {QStringLiteral("key"),
         {"ID NAME",
          [](ScriptedUser& u, const StepValues& v) {
              const int key = keyByName(v.words[0].text);
              if (!key)
                  return QStringLiteral("unknown key %1").arg(v.words[0].text);
              u.Key(v.id, key);
              return QString();
          }}},
        {QStringLiteral("tab"),
         {"ID INDEX",
          [](ScriptedUser& u, const StepValues& v) {
              u.SwitchTab(v.id, v.wholes[0]);
              return QString();
          }}},
        {QStringLiteral("press"),
         {"ID FX FY",
          [](ScriptedUser& u, const StepValues& v) {
              u.Press(v.id, v.fractions[0], v.fractions[1]);
              return QString();
          }}},
        {QStringLiteral("answer"),
         {"ANSWER",
          [](ScriptedUser& u, const StepValues& v) {
              static const QMap<QString, int> answers = {{QStringLiteral("ok"), ulo::IDOK},
                                                         {QStringLiteral("yes"), ulo::IDYES},
                                                         {QStringLiteral("no"), ulo::IDNO},
                                                         {QStringLiteral("cancel"), ulo::IDCANCEL}};
              const QString& a = v.words[0].text;
              if (!answers.contains(a))
                  return QStringLiteral("unknown answer %1").arg(a);
              u.Answer(answers.value(a));
              return QString();
          }}},
        {QStringLiteral("file"),
         {"PATH",
          [](ScriptedUser& u, const StepValues& v) {
              const Word& w = v.words[0];
              if (!w.quoted && w.text == QLatin1String("cancel"))
                  u.CancelFile();
              else
                  u.AnswerFile(w.text);
              return QString();
          }}},
        {QStringLiteral("read"),
         {"ID",
          [](ScriptedUser& u, const StepValues& v) {
              u.Read(v.id);
              return QString();
          }}},
        {QStringLiteral("shot"),
         {"PATH",
          [](ScriptedUser& u, const StepValues& v) {
              u.Shot(v.words[0].text);
              return QString();
          }}},
        {QStringLiteral("help"),
         {"",
          [](ScriptedUser& u, const StepValues&) {
              u.Help();
              return QString();
          }}},
        {QStringLiteral("close"),
         {"",
          [](ScriptedUser& u, const StepValues&) {
              u.Close();
              return QString();
          }}},
    };
    return forms;
}

/// Queues one step on @p user; returns an error message for a bad step.
QString queueStep(ScriptedUser& user, const Statement& s) {
    const QString& verb = s.words[0].text;
    const auto form = stepForms().constFind(verb);
    if (form == stepForms().constEnd())
        return QStringLiteral("bad step: %1").arg(verb);
    StepValues values;
    if (const QString error = readStep(s, QLatin1String(form->form), values); !error.isEmpty())
        return error;
    user.SetLine(s.line);
    return form->queue(user, values);
}

}  // namespace

int Player::Run(const QString& script) {
    std::vector<ParseError> parseErrors;
    const std::vector<Statement> statements = ParseScript(script, parseErrors);
    for (const auto& e : parseErrors)
        Error(e.line, e.message);
    for (std::size_t i = 0; i < statements.size(); ++i) {
        const Statement& s = statements[i];
        if (s.words[0].text == QLatin1String("call")) {
            std::vector<Statement> steps;
            std::size_t j = i + 1;
            while (j < statements.size() && statements[j].words[0].text != QLatin1String("end") &&
                   statements[j].words[0].text != QLatin1String("call"))
                steps.push_back(statements[j++]);
            if (j >= statements.size() || statements[j].words[0].text != QLatin1String("end")) {
                Error(s.line, QStringLiteral("call without end"));
                i = j - 1;
                continue;
            }
            Call(s, steps);
            i = j;
        } else if (!TopLevel(s)) {
            Error(s.line, QStringLiteral("unknown statement: %1").arg(s.words[0].text));
        }
    }
    return errors_;
}

void Player::Call(const Statement& call, const std::vector<Statement>& steps) {
    if (call.words.size() < 2)
        return Error(call.line, QStringLiteral("call needs an operation"));
    const QString name = call.words[1].text;
    const catalogue::Operation* op = catalogue::Find(name);
    if (!op)
        return Error(call.line, QStringLiteral("unknown operation %1").arg(name));
    catalogue::Call oc = NewCall(factory_, *host_);
    for (std::size_t k = 2; k < call.words.size(); ++k) {
        QString n, v;
        if (!SplitArgument(call.words[k].text, n, v))
            return Error(call.line, QStringLiteral("bad argument %1").arg(call.words[k].text));
        oc.args.insert(n, v);
    }
    if (const QString refused = op->Refuse(oc.args); !refused.isEmpty())
        return Error(call.line, refused);
    automation::ScriptedUser user;
    user.onEvent = [this](const QJsonObject& e) {
        if (e.value(QStringLiteral("event")).toString() == QLatin1String("error"))
            ++errors_;
        Print(e);
    };
    for (const Statement& s : steps) {
        const QString err = queueStep(user, s);
        if (!err.isEmpty())
            return Error(s.line, err);
    }
    user.SetLine(call.line);
    const QJsonValue result = op->Run(oc);
    if (!oc.error.isEmpty())
        return Error(call.line, oc.error);
    if (user.PendingSteps() > 0)
        Error(call.line, QStringLiteral("%1 step(s) not performed: no window was in front")
                             .arg(user.PendingSteps()));
    QJsonObject ret{{QStringLiteral("event"), QStringLiteral("return")},
                    {QStringLiteral("operation"), name},
                    {QStringLiteral("result"), result}};
    for (auto it = oc.out.begin(); it != oc.out.end(); ++it)
        ret.insert(it.key(), it.value());
    Print(ret, oc.numbers);
}

bool Player::TopLevel(const Statement& s) {
    const auto& w = s.words;
    const QString verb = w[0].text;
    if (verb == QLatin1String("layout")) {
        QString why;
        const std::optional<int> n =
            w.size() == 2 && !w[1].quoted ? ReadInt(w[1].text, why) : std::optional<int>();
        if (!n || *n < 0 || *n > 3)
            Error(s.line, why.isEmpty() ? QStringLiteral("layout needs 0..3")
                                        : QStringLiteral("layout needs 0..3: %1").arg(why));
        else
            CPalmDevice::SetLayoutOverride(*n);
        return true;
    }
    if (verb == QLatin1String("end")) {
        Error(s.line, QStringLiteral("end without call"));
        return true;
    }
    QString error;
    QJsonObject event;
    if (!host_->Statement(w, error, event))
        return false;
    if (!error.isEmpty())
        Error(s.line, error);
    if (!event.isEmpty())
        Print(event);
    return true;
}

}  // namespace veldplay
