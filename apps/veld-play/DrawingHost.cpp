#include "DrawingHost.h"

#include <QJsonDocument>
#include <QMap>

#include "app/DrawingFile.h"
#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "app/view/VELDView.h"
#include "automation/ScriptNumbers.h"
#include "veld/EntCollection.h"
#include "veld/FileReaderPasswordRequest.h"

namespace veldplay {

namespace {

/// Answers the drawing reader with the password of the command line, once;
/// after a wrong one it does not retry. Without a password it cancels.
class GivenPassword : public veld::IFileReaderPasswordRequest {
public:
    explicit GivenPassword(const QString& password) : password_(password) {}
    bool RequestPassword(ulo::WString& password, const ulo::WString&) override {
        if (password_.isEmpty() || asked_)
            return false;
        asked_ = true;
        password = ulo::WString::FromQString(password_);
        return true;
    }
    bool AskRetry(const ulo::WString&) override { return false; }

private:
    QString password_;
    bool asked_ = false;
};

}  // namespace

DrawingHost::DrawingHost()
    : cad_(std::make_unique<CVELD>()), view_(std::make_unique<CVELDView>(cad_.get())) {}

DrawingHost::~DrawingHost() = default;

bool DrawingHost::Load(const QString& path, QString& error) {
    GivenPassword request(password_);
    return drawingfile::Load(*cad_, path, &request, error);
}

bool DrawingHost::Open(const QString& path, bool sample, const QString& password, QString& error) {
    password_ = password;
    if (!path.isEmpty())
        return Load(path, error);
    if (sample)
        BuildSampleDrawing(*cad_);
    return true;
}

QString DrawingHost::Select(const std::vector<Word>& words) {
    if (words.size() < 2)
        return QStringLiteral("select needs at least one handle");
    // Every handle is checked before anything is selected.
    std::vector<veld::CEnt*> entities;
    for (std::size_t i = 1; i < words.size(); ++i) {
        QString why;
        const std::optional<std::uint64_t> handle =
            words[i].quoted ? std::nullopt : automation::ReadUInt64(words[i].text, why);
        if (!handle)
            return QStringLiteral("select: %1 is not a handle").arg(words[i].text);
        veld::CEnt* entity = cad_->GetData()->GetEntTable().Find(*handle);
        if (!entity)
            return QStringLiteral("select: no entity has handle %1").arg(*handle);
        entities.push_back(entity);
    }
    for (veld::CEnt* entity : entities)
        NtfySelectedEnt(cad_.get(), entity);
    return {};
}

QString DrawingHost::Angles(const std::vector<Word>& words) {
    static const QMap<QString, short> systems = {{QStringLiteral("degrees"), 0},
                                                 {QStringLiteral("gons"), 2},
                                                 {QStringLiteral("radians"), 3}};
    if (words.size() != 2)
        return QStringLiteral("angles needs one word: degrees, gons or radians");
    if (!systems.contains(words[1].text))
        return QStringLiteral("angles: unknown system %1 (degrees, gons or radians)")
            .arg(words[1].text);
    short system = 0;
    double base = 0.0;
    bool clockwise = false;
    GetAngleSystem(cad_.get(), system, base, clockwise);
    SetAngleSystem(cad_.get(), systems.value(words[1].text), base, clockwise);
    return {};
}

bool DrawingHost::Statement(const std::vector<Word>& words, QString& error, QJsonObject& event) {
    const QString verb = words[0].text;
    const std::size_t arity = words.size() - 1;
    const auto noArguments = [&] {
        if (arity == 0)
            return true;
        error = QStringLiteral("%1 takes no arguments").arg(verb);
        return false;
    };
    const auto oneFile = [&] {
        if (arity == 1)
            return true;
        error = QStringLiteral("%1 needs one file").arg(verb);
        return false;
    };

    if (verb == QLatin1String("select")) {
        error = Select(words);
    } else if (verb == QLatin1String("deselect")) {
        if (noArguments())
            NtfyDeselectAll(cad_.get());
    } else if (verb == QLatin1String("undo")) {
        if (noArguments() && !(cad_->CanUndo() && cad_->Undo()))
            error = QStringLiteral("nothing to undo");
    } else if (verb == QLatin1String("redo")) {
        if (noArguments() && !(cad_->CanRedo() && cad_->Redo()))
            error = QStringLiteral("nothing to redo");
    } else if (verb == QLatin1String("dump")) {
        if (arity != 1 || words[1].text != QLatin1String("drawing")) {
            error = QStringLiteral("dump needs one word: drawing");
            return true;
        }
        event = QJsonDocument::fromJson(drawingfile::Dump(*cad_)).object();
        event.insert(QStringLiteral("event"), QStringLiteral("drawing"));
    } else if (verb == QLatin1String("angles")) {
        error = Angles(words);
    } else if (verb == QLatin1String("open")) {
        if (oneFile())
            Load(words[1].text, error);
    } else if (verb == QLatin1String("save")) {
        if (oneFile())
            drawingfile::Save(*cad_, words[1].text, QString(), error);
    } else {
        return false;
    }
    return true;
}

}  // namespace veldplay
