#include "Player.h"

#include <QJsonDocument>
#include <cmath>

#include "PlayHost.h"
#include "automation/ScriptedUser.h"
#include "ulo/NumberText.h"
#include "ulo/PalmDevice.h"
#include "ulo/ctrl/Win.h"

namespace veldplay {

double OperationCall::Number(const QString& name, double fallback) {
    bool ok = args.contains(name);
    double v = ok ? args.value(name).toDouble(&ok) : fallback;
    if (!ok)
        v = fallback;
    numberInputs.insert(name, v);
    return v;
}

bool OperationCall::Flag(const QString& name, bool fallback) const {
    if (!args.contains(name))
        return fallback;
    const QString v = args.value(name).toLower();
    return v == QLatin1String("1") || v == QLatin1String("true") || v == QLatin1String("yes");
}

QString OperationCall::Text(const QString& name, const QString& fallback) {
    const QString v = args.contains(name) ? args.value(name) : fallback;
    textInputs.insert(name, v);
    return v;
}

CVELD* OperationCall::CAD() {
    CVELD* cad = host ? host->GetCAD() : nullptr;
    if (!cad)
        error = QStringLiteral("this operation needs a drawing");
    return cad;
}

CVELDView* OperationCall::View() {
    CVELDView* view = host ? host->GetView() : nullptr;
    if (!view)
        error = QStringLiteral("this operation needs a view");
    return view;
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

bool toUInt(const Word& w, unsigned& v) {
    bool ok = false;
    v = w.text.toUInt(&ok);
    return ok && !w.quoted;
}

bool toInt(const Word& w, int& v) {
    bool ok = false;
    v = w.text.toInt(&ok);
    return ok && !w.quoted;
}

bool toDouble(const Word& w, double& v) {
    bool ok = false;
    v = w.text.toDouble(&ok);
    return ok && !w.quoted;
}

/// Queues one step on @p user; returns an error message for a bad step.
QString queueStep(automation::ScriptedUser& user, const Statement& s) {
    const auto& w = s.words;
    const QString verb = w[0].text;
    const auto need = [&](std::size_t n) { return w.size() == n; };
    unsigned id = 0;
    int a = 0, b = 0;
    double x = 0, y = 0;
    user.SetLine(s.line);
    if (verb == QLatin1String("click") && need(2) && toUInt(w[1], id)) {
        user.Click(id);
    } else if (verb == QLatin1String("type") && need(3) && toUInt(w[1], id)) {
        user.Type(id, w[2].text);
    } else if (verb == QLatin1String("set") && need(3) && toUInt(w[1], id)) {
        user.SetText(id, w[2].text);
    } else if (verb == QLatin1String("clear") && need(2) && toUInt(w[1], id)) {
        user.Clear(id);
    } else if (verb == QLatin1String("pick") && need(3) && toUInt(w[1], id)) {
        if (!w[2].quoted && toInt(w[2], a))
            user.Pick(id, a);
        else
            user.Pick(id, w[2].text);
    } else if ((verb == QLatin1String("tap") || verb == QLatin1String("dtap")) && need(4) &&
               toUInt(w[1], id) && toInt(w[2], a) && toInt(w[3], b)) {
        if (verb == QLatin1String("tap"))
            user.Tap(id, a, b);
        else
            user.DoubleTap(id, a, b);
    } else if (verb == QLatin1String("check") && need(3) && toUInt(w[1], id) && toInt(w[2], a)) {
        user.CheckRow(id, a);
    } else if (verb == QLatin1String("header") && need(3) && toUInt(w[1], id) && toInt(w[2], a)) {
        user.Header(id, a);
    } else if (verb == QLatin1String("key") && need(3) && toUInt(w[1], id)) {
        const int key = keyByName(w[2].text);
        if (!key)
            return QStringLiteral("unknown key %1").arg(w[2].text);
        user.Key(id, key);
    } else if (verb == QLatin1String("tab") && need(3) && toUInt(w[1], id) && toInt(w[2], a)) {
        user.SwitchTab(id, a);
    } else if (verb == QLatin1String("press") && need(4) && toUInt(w[1], id) && toDouble(w[2], x) &&
               toDouble(w[3], y)) {
        user.Press(id, x, y);
    } else if (verb == QLatin1String("answer") && need(2)) {
        static const QMap<QString, int> answers = {{QStringLiteral("ok"), ulo::IDOK},
                                                   {QStringLiteral("yes"), ulo::IDYES},
                                                   {QStringLiteral("no"), ulo::IDNO},
                                                   {QStringLiteral("cancel"), ulo::IDCANCEL}};
        if (!answers.contains(w[1].text))
            return QStringLiteral("unknown answer %1").arg(w[1].text);
        user.Answer(answers.value(w[1].text));
    } else if (verb == QLatin1String("file") && need(2)) {
        if (!w[1].quoted && w[1].text == QLatin1String("cancel"))
            user.CancelFile();
        else
            user.AnswerFile(w[1].text);
    } else if (verb == QLatin1String("read") && need(2) && toUInt(w[1], id)) {
        user.Read(id);
    } else if (verb == QLatin1String("shot") && need(2)) {
        user.Shot(w[1].text);
    } else if (verb == QLatin1String("help") && need(1)) {
        user.Help();
    } else if (verb == QLatin1String("close") && need(1)) {
        user.Close();
    } else {
        return QStringLiteral("bad step: %1").arg(verb);
    }
    return {};
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
    const auto& ops = Operations();
    if (!ops.contains(name))
        return Error(call.line, QStringLiteral("unknown operation %1").arg(name));
    OperationCall oc;
    oc.factory = factory_;
    oc.host = host_;
    for (std::size_t k = 2; k < call.words.size(); ++k) {
        QString n, v;
        if (!SplitArgument(call.words[k].text, n, v))
            return Error(call.line, QStringLiteral("bad argument %1").arg(call.words[k].text));
        oc.args.insert(n, v);
    }
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
    const QJsonValue result = ops.value(name)(oc);
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
        int n = -1;
        if (w.size() != 2 || !toInt(w[1], n) || n < 0 || n > 3)
            Error(s.line, QStringLiteral("layout needs 0..3"));
        else
            CPalmDevice::SetLayoutOverride(n);
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
