// JSON keys and values in this file are ASCII literals: let them convert.
#undef QT_NO_CAST_FROM_ASCII
// Drawing files: table order and every kept number survive a save and a load;
// damaged, special and hand-edited files are refused with a message naming
// the fault and the open drawing stays as it was. (The sample saved and opened
// plain and sealed: DemoTest.SavedDrawingsOpenAgainTheSamePlainAndSealed.)
#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <numbers>

#include <sys/stat.h>

#include "app/DrawingFile.h"
#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "app/view/VELDView.h"
#include "veld/Data.h"
#include "veld/StoredRange.h"

namespace {

/// Answers the password questions from a list (null: cancel); never retries.
struct ScriptedPasswords : veld::IFileReaderPasswordRequest {
    std::vector<const wchar_t*> answers;
    std::string calls;
    size_t asked = 0;
    explicit ScriptedPasswords(std::vector<const wchar_t*> list) : answers(std::move(list)) {}
    bool RequestPassword(ulo::WString& password, const ulo::WString&) override {
        calls += "ask ";
        const wchar_t* answer = asked < answers.size() ? answers[asked] : nullptr;
        ++asked;
        if (answer)
            password = answer;
        return answer;
    }
    bool AskRetry(const ulo::WString&) override {
        calls += "retry ";
        return false;
    }
};

QByteArray sampleJson() {
    CVELD cad;
    BuildSampleDrawing(cad);
    return drawingfile::Write(cad);
}

QByteArray readFile(const QString& file) {
    QFile f(file);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

/// @p node with the value at @p path set to @p value, or removed when that is undefined.
QJsonValue with(const QJsonValue& node, const QStringList& path, const QJsonValue& value) {
    const QStringList rest = path.mid(1);
    if (node.isArray()) {
        QJsonArray a = node.toArray();
        const int i = path.front().toInt();
        if (!rest.isEmpty())
            a[i] = with(a[i], rest, value);
        else if (value.isUndefined())
            a.removeAt(i);
        else
            a[i] = value;
        return a;
    }
    QJsonObject o = node.toObject();
    if (!rest.isEmpty())
        o[path.front()] = with(o[path.front()], rest, value);
    else if (value.isUndefined())
        o.remove(path.front());
    else
        o[path.front()] = value;
    return o;
}

/// A change made to a drawing document by hand.
using Edit = std::function<void(QJsonObject&)>;

/// Sets the value at a slash-separated @p path ("layers/1/ltype"), or removes it.
Edit set(const char* path, const QJsonValue& value = QJsonValue(QJsonValue::Undefined)) {
    return [=](QJsonObject& root) {
        root = with(root, QString::fromLatin1(path).split('/'), value).toObject();
    };
}

/// Appends @p count views, each with its own preset and a grid the writer
/// writes back as it is.
Edit addViews(int count) {
    const QJsonObject grid = QJsonDocument::fromJson(
                                 R"({"gridOn": true, "gridBySnap": false, "gridEast": 5,
                                     "gridNorth": 2.5, "snapOn": true, "baseEast": 1,
                                     "baseNorth": 2, "snapEast": 0.5, "snapNorth": 0.25,
                                     "snapAngle": 0.5})")
                                 .object();
    return [=](QJsonObject& root) {
        QJsonArray views = root["views"].toArray();
        for (int i = 0; i < count; ++i)
            views.append(QJsonObject{{"preset", 3 + i}, {"grid", grid}});
        root["views"] = views;
    };
}

/// A CAD instance with @p count views open on it.
struct WithViews {
    CVELD cad;
    std::vector<std::unique_ptr<CVELDView>> views;
    explicit WithViews(int count) {
        for (int i = 0; i < count; ++i)
            views.push_back(std::make_unique<CVELDView>(&cad));
    }
};

}  // namespace

TEST(DrawingFile, LoadingTheSameFileTwiceGivesTheSameObjectsInTableOrder) {
    // A file keeps the table order as it stands, built-in items included:
    // here layer 0 comes after WALLS (the emptied table took a new order).
    CVELD cad;
    veld::CLayerTable& layers = cad.GetData()->GetLayerTable();
    veld::CLayer* zero = layers.Find(L"0");
    zero->AddReference();
    layers.Remove(zero);
    veld::CLayer* walls = cad.GetData()->GetObjectFactory()->CreateLayer(
        L"WALLS", cad.GetData()->GetLtypeTable().GetLtypeContinuous(), 1, veld::kLineWidthDefault,
        0, 0);
    for (veld::CLayer* l : {walls, zero}) {
        layers.Add(l);
        l->SubReference();
    }
    const QByteArray json = drawingfile::Write(cad);
    CVELD other;
    QString error;
    ASSERT_TRUE(drawingfile::Read(other, json, error)) << error.toStdString();
    EXPECT_EQ(drawingfile::Write(other), json);
    EXPECT_EQ(other.GetData()->GetLayerTable().GetNo(1)->GetName(), L"0");
}

// Damaged, sealed against another password, endless or huge: a file is
// refused, before a byte is read where it is endless or huge, with a message
// naming the file and the fault, and it never yields a drawing: the open one
// stays. A save never turns a device, FIFO or folder into a drawing. (The
// order of the questions and the damage the sealed file reader finds:
// tests/veld.)
TEST(DrawingFile, RefusalsNameTheFileAndTheFaultAndNeverOpen) {
    QTemporaryDir dir;
    CVELD cad;
    BuildSampleDrawing(cad);
    QString error;
    const QString bad = dir.filePath("bad.veld");
    ASSERT_TRUE(drawingfile::Save(cad, bad, QStringLiteral("pw"), error));
    const QByteArray sealed = readFile(bad);
    const QByteArray plain = drawingfile::Write(cad);
    QByteArray flipped = sealed;
    flipped[flipped.size() / 2] = static_cast<char>(flipped[flipped.size() / 2] ^ 0x10);
    QByteArray version = sealed;
    version[8] = 2;
    const QString fifo = dir.filePath("pipe.veld");
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const QString zeroLink = dir.filePath("zero.veld");
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), zeroLink));
    const QString huge = dir.filePath("huge.veld");
    {
        QFile f(huge);  // sparse: no disk is spent on it
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        ASSERT_TRUE(f.resize(drawingfile::kMaxFileBytes + 1));
    }

    const char* const wrong = "bad.veld was not opened: wrong password or damaged file";
    const char* const notDrawing = "bad.veld: not a drawing file";
    const char* const notRegular = ": it is not a regular file";
    const struct {
        QString file;
        QByteArray bytes;                     // written to bad.veld first
        std::vector<const wchar_t*> answers;  // null: cancel
        const char* calls;
        QString message;  // up to the parser's own words, after a second ": "
    } cases[] = {
        {bad, sealed, {L"wrong"}, "ask retry ", wrong},
        {bad, sealed, {nullptr}, "ask ", "bad.veld was not opened: no password was given"},
        {bad, flipped, {L"pw"}, "ask retry ", wrong},
        {bad, version, {L"pw"}, "", "bad.veld is damaged: its sealed content does not open"},
        {bad, plain.left(plain.size() / 2), {}, "", notDrawing},
        {bad, QByteArray(), {}, "", notDrawing},
        {fifo, {}, {}, "", QStringLiteral("pipe.veld cannot be opened") + notRegular},
        {zeroLink, {}, {}, "", QStringLiteral("zero.veld cannot be opened") + notRegular},
        {QStringLiteral("/dev/zero"),
         {},
         {},
         "",
         QStringLiteral("zero cannot be opened") + notRegular},
        {dir.path(),
         {},
         {},
         "",
         QFileInfo(dir.path()).fileName() + " cannot be opened: it is a folder"},
        {huge,
         {},
         {},
         "",
         QStringLiteral("huge.veld cannot be opened: it is larger than %1 bytes")
             .arg(drawingfile::kMaxFileBytes)},
    };
    const QByteArray untouched = drawingfile::Dump(cad);
    for (const auto& c : cases) {
        if (c.file == bad) {
            QFile f(bad);
            ASSERT_TRUE(f.open(QIODevice::WriteOnly));
            f.write(c.bytes);
        }
        ScriptedPasswords request(c.answers);
        EXPECT_FALSE(drawingfile::Load(cad, c.file, &request, error)) << c.message.toStdString();
        EXPECT_EQ(request.calls, c.calls) << c.message.toStdString();
        EXPECT_EQ(error.section(QStringLiteral(": "), 0, 1), c.message);
        EXPECT_EQ(drawingfile::Dump(cad), untouched) << c.message.toStdString();
    }
    for (const QString& target : {fifo, dir.path()}) {
        EXPECT_FALSE(drawingfile::Save(cad, target, QString(), error)) << target.toStdString();
        EXPECT_EQ(error, QFileInfo(target).fileName() + " cannot be saved" + notRegular);
    }
    EXPECT_FALSE(QFileInfo(fifo).isFile()) << "the FIFO is still one";
}

// A key given twice is refused with its place: which value was meant is
// anybody's guess, and a later save would quietly drop one of them.
TEST(DrawingFile, KeysGivenTwiceAreRefusedWithTheirPlace) {
    const QByteArray json = sampleJson();
    const struct {
        const char* within;  // the twin goes in after the first @c after from here
        const char* after;
        const char* twin;
        const char* message;
    } cases[] = {
        {"", "{", "\"format\": \"veld-drawing\", ", "the key \"format\" appears twice"},
        {"\"entities\"", "{", "\"layer\": \"0\", ", "entities[0]: the key \"layer\" appears twice"},
        // Spelt with an escape.
        {"", "\"settings\": {", "\"osn\\u0061pOn\": true, ",
         "settings: the key \"osnapOn\" appears twice"},
    };
    for (const auto& c : cases) {
        QByteArray edited = json;
        edited.insert(edited.indexOf(c.after, edited.indexOf(c.within)) + qstrlen(c.after), c.twin);
        CVELD cad;
        QString error;
        EXPECT_FALSE(drawingfile::Read(cad, edited, error)) << c.message;
        EXPECT_EQ(error.toStdString(), c.message);
    }
}

// The canonical writer writes only what an image shows: the bits that pad a
// row of a one-bit picture never reach the file.
TEST(DrawingFile, ImagesOfEveryDepthSaveTheSameBytesTwice) {
    for (const QImage::Format format :
         {QImage::Format_Mono, QImage::Format_MonoLSB, QImage::Format_Indexed8,
          QImage::Format_Grayscale8, QImage::Format_Grayscale16, QImage::Format_RGB16,
          QImage::Format_RGB888, QImage::Format_RGB32, QImage::Format_ARGB32,
          QImage::Format_RGBA64}) {
        // Two pictures of the same pixels whose padding differs, as memory
        // left by earlier allocations would.
        QByteArray written[2];
        for (const uchar garbage : {uchar(0x00), uchar(0xFF)}) {
            QImage image(13, 3, format);
            for (int y = 0; y < image.height(); ++y)
                std::memset(image.scanLine(y), garbage, static_cast<size_t>(image.bytesPerLine()));
            const bool indexed = image.depth() <= 8 && format != QImage::Format_Grayscale8;
            if (indexed)
                image.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
            const uint white = indexed ? 1u : 0xFFFFFFFFu;
            for (int x = 0; x < image.width(); ++x)
                for (int y = 0; y < image.height(); ++y)
                    image.setPixel(x, y, (x + y) % 2 ? white : 0u);
            CVELD cad;
            cad.AddImage(std::make_unique<CVELDImage>(
                QStringLiteral("Scan"), std::make_shared<pix::CDibImage>(image), 0.5, 10, 20));
            QByteArray& out = written[garbage ? 1 : 0];
            out = drawingfile::Write(cad);
            CVELD reopened;
            QString error;
            ASSERT_TRUE(drawingfile::Read(reopened, out, error))
                << format << ": " << error.toStdString();
            EXPECT_EQ(drawingfile::Write(reopened), out) << format;
        }
        EXPECT_EQ(written[0], written[1]) << format;
    }
}

// Every number a drawing keeps reads back from its file bit for bit when it
// lies in its range (veld/StoredRange.h), never as -0, and a file holding one
// beyond it is refused naming the place; the setters that guard a range keep
// what they had. Probed at the limits of a double and of each range.
TEST(DrawingFile, StoredNumbersReadBackBitForBitOrAreRefusedByTheirRange) {
    namespace stored = veld::stored;
    const struct {
        const char* path;    // slash-separated; # stands for the index the lookup names
        const char* lookup;  // "kind=TEXT", "name=DASHED" in the list before #
        veld::StoredRange range;
    } quantities[] = {
        {"settings/ltypeScale", "", stored::kLtypeScale},
        {"settings/angleBase", "", stored::kAngleBase},
        {"views/0/grid/baseEast", "", stored::kFinite},
        {"views/0/grid/snapEast", "", stored::kFinite},
        {"views/0/grid/snapAngle", "", stored::kFinite},
        {"views/0/grid/gridNorth", "", stored::kFinite},
        {"entities/#/points/0/1", "kind=LINE", stored::kCoordinate},
        {"entities/#/radius", "kind=CIRCLE", stored::kLength},
        {"entities/#/text/height", "kind=TEXT", stored::kLength},
        {"entities/#/text/rotation", "kind=TEXT", stored::kTextAngle},
        {"entities/#/text/width", "kind=TEXT", stored::kWidthFactor},
        {"styles/#/fixedHeight", "name=STANDARD", stored::kLength},
        {"styles/#/widthScale", "name=STANDARD", stored::kWidthFactor},
        {"styles/#/oblique", "name=STANDARD", stored::kOblique},
        {"ltypes/#/elements/0", "name=DASHED", stored::kFinite},
        {"ltypes/#/elements/2/height", "name=GAS_LINE", stored::kFinite},
        {"images/0/scale", "", stored::kImageScale},
    };
    constexpr double kPi = std::numbers::pi;
    constexpr double kMax = std::numeric_limits<double>::max();
    constexpr double kTiniest = std::numeric_limits<double>::denorm_min();
    constexpr double kMin = std::numeric_limits<double>::min();
    const double past1e100 = std::nextafter(1e100, kMax);
    const double limits[] = {0.0,   -0.0,   kTiniest,  -kTiniest, kMin, 4e-320, 1e-12,   1e-9,
                             1e-4,  0.01,   1.0,       -1.0,      kPi,  -kPi,   2 * kPi, 100.0,
                             1e100, -1e100, past1e100, 1e200,     kMax, -kMax};
    const auto bits = [](double v) { return std::bit_cast<std::uint64_t>(v); };
    WithViews sample(1);
    BuildSampleDrawing(sample.cad);
    const QJsonObject start = QJsonDocument::fromJson(drawingfile::Write(sample.cad)).object();
    for (const auto& q : quantities) {
        QString place = QString::fromLatin1(q.path);
        if (place.contains(u'#')) {
            const QStringList look = QString::fromLatin1(q.lookup).split(u'=');
            const QJsonArray list = start[place.section(u'/', 0, 0)].toArray();
            qsizetype at = 0;
            while (at < list.size() && list[at][look[0]].toString() != look[1])
                ++at;
            place.replace(u'#', QString::number(at));
        }
        const QStringList path = place.split(u'/');
        const auto valueAt = [&](const QByteArray& json) {
            QJsonValue node = QJsonDocument::fromJson(json).object();
            for (const QString& key : path)
                node = node.isArray() ? node[key.toInt()] : node[key];
            return node;
        };
        ASSERT_TRUE(valueAt(drawingfile::Write(sample.cad)).isDouble()) << q.path;
        std::vector<double> values(std::begin(limits), std::end(limits));
        for (const double edge : {q.range.lo, q.range.hi})
            for (const double v : {edge, std::nextafter(edge, -kMax), std::nextafter(edge, kMax)})
                values.push_back(v);
        for (const double v : values) {
            const std::string what =
                std::string(q.path) + " = " + QString::number(v, 'g', 17).toStdString();
            WithViews target(1);
            QString error;
            const bool read = drawingfile::Read(
                target.cad, QJsonDocument(with(start, path, v).toObject()).toJson(), error);
            if (q.range.Holds(v)) {
                ASSERT_TRUE(read) << what << ": " << error.toStdString();
                const QByteArray written = drawingfile::Write(target.cad);
                const double held = valueAt(written).toDouble();
                EXPECT_TRUE(q.range.Holds(held)) << what;
                EXPECT_FALSE(held == 0 && std::signbit(held)) << what << ": a negative zero";
                WithViews reopened(1);
                ASSERT_TRUE(drawingfile::Read(reopened.cad, written, error)) << what;
                EXPECT_EQ(bits(valueAt(drawingfile::Write(reopened.cad)).toDouble()), bits(held))
                    << what;
                continue;
            }
            EXPECT_FALSE(read) << what;
            QString named = place;
            named.replace(QRegularExpression(QStringLiteral("/(\\d+)")), QStringLiteral("[\\1]"));
            named.replace(u'/', u'.');
            EXPECT_TRUE(error.startsWith(named + ": ")) << error.toStdString();
            EXPECT_TRUE(error.contains(" is out of range (")) << error.toStdString();
        }
    }
    CVELD cad;
    SetLtypeScale(&cad, 2.5);
    SetAngleSystem(&cad, 2, 0.5, false);
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    for (const double v : {0.0, -1.0, kNaN})
        SetLtypeScale(&cad, v);
    for (const double v : {7.0, -kMax, kNaN})
        SetAngleSystem(&cad, 2, v, false);
    short system;
    double base;
    bool clockwise;
    GetAngleSystem(&cad, system, base, clockwise);
    EXPECT_EQ(GetLtypeScale(&cad), 2.5);
    EXPECT_EQ(base, 0.5);
}

// A hand-edited file is refused naming the place of the fault, leaving the
// open drawing as it was; one within the rules reads, and writes back as it
// was written (or in the writer's own spelling).
TEST(DrawingFile, HandEditedFilesNameThePlaceOfTheFaultOrWriteBackAsTheyWere) {
    const QJsonObject sample = QJsonDocument::fromJson(sampleJson()).object();
    // The sample's active sets, in type order: Plan (0), Survey (1), Stations (2), Basemap (4);
    // Details is a second set of type 0.
    ASSERT_EQ(sample["active"].toArray(), (QJsonArray{1, 3, 0, 5}));
    using Check = std::function<void(CVELD&)>;
    // The set keeps its entities, stays hidden, and they are drawn only when it is on.
    const auto hiddenSet = [](unsigned type, const wchar_t* name, bool drawn) {
        return Check([=](CVELD& cad) {
            veld::CDrawing* set = cad.GetData()->GetDrawingManager()->FindDrawing(type, name);
            ASSERT_NE(set, nullptr);
            EXPECT_TRUE(set->IsHidden());
            const unsigned ents = set->GetEntTable()->GetNoEnts();
            EXPECT_GT(ents, 0u);
            unsigned shown = 0;
            veld::CData::CHandleObjectIterator it(cad.GetData(), false);
            while (const veld::CEnt* e = it.GetNext())
                shown += e->GetDrawing() == set;
            EXPECT_EQ(shown, drawn ? ents : 0u);
        });
    };
    struct Case {
        Edit edit;
        QString what;         // a refusal's message names the case; else a name
        int views = 0;        // of the drawing read into
        Check accepted = {};  // null: the file is refused
        Edit canonical = {};  // how the writer writes the edit, when not as it was read
    };
    std::vector<Case> cases = {
        {set("format", "other"), "format: expected \"veld-drawing\""},
        {set("version", 7), "version: this program reads version 1"},
        {set("layers"), "layers: expected a list"},
        {set("layers/1/ltype", "NOPE"), "layers[1].ltype: no line type \"NOPE\""},
        {set("layers/1/color", 300), "layers[1].color: 300 is out of range"},
        {set("layers/2/name", "buildings"), "layers[2].name: \"buildings\" appears twice"},
        {set("styles/1/font", "Comic"), "styles[1].font: no font \"Comic\""},
        {set("entities/0/layer", "GONE"), "entities[0].layer: no layer \"GONE\""},
        {set("entities/0/kind", "SPLINE"), "entities[0].kind: no entity kind"},
        {set("entities/0/set", 99), "entities[0].set: 99 is out of range"},
        {set("entities/1/handle", sample["entities"][0]["handle"]), "entities[1].handle: handle"},
        {set("entities/5/points", QJsonArray{QJsonArray{1, 2, 3}}),
         "entities[5].points: a line has 2 points"},
        {set("entities/5/points", QJsonArray{QJsonArray{1, 2}, QJsonArray{1, 2, 3}}),
         "entities[5].points[0]: expected a point"},
        {set("ltypes/1"), "the line type \"ByLayer\" is missing"},
        {set("current/layer", "CONTOURS"),
         "current.layer: the layer \"CONTOURS\" cannot be current"},
        {set("current/ltype", "basemap|track"),
         "current.ltype: the line type \"basemap|track\" cannot be current"},
        {set("settings/colors/grid", "red"), "settings.colors.grid: expected a colour"},
        {set("settings/colors/grid", "#+fffff"),
         "settings.colors.grid: expected a colour \"#rrggbb\", found \"#+fffff\""},
        {set("settings/colors/background", "# fffff"),
         "settings.colors.background: expected a colour \"#rrggbb\", found \"# fffff\""},
        {set("settings/colors/selected", "#fffff "), "settings.colors.selected: expected a colour"},
        {set("settings/colors/crossHair", "#0xfff0"),
         "settings.colors.crossHair: expected a colour"},
        {set("entities/0/user", 7), "entities[0].user: no user type 7"},
        {set("layers/1/ltype", "ByLayer"),
         "layers[1].ltype: a layer needs a real line type, not \"ByLayer\""},
        {set("layers/2/ltype", "byblock"),
         "layers[2].ltype: a layer needs a real line type, not \"byblock\""},
        {set("layers/1/lineWidth", 7), "layers[1].lineWidth: 7 is not a standard line width"},
        {set("layers/2/lineWidth", 1), "layers[2].lineWidth: 1 is not a standard line width"},
        {set("layers/3/lineWidth", 210), "layers[3].lineWidth: 210 is not a standard line width"},
        {addViews(1), "views[0]: the drawing has no views"},
        {addViews(2), "views[1]: the drawing has 1 view", 1},
        {set("images/0/png", ""), "images[0].png: the picture is empty"},
        {set("images/0/png", "iVBORw0KGgo*"), "images[0].png: the picture is not base64"},
        {set("images/0/png", "aGVsbG8="), "images[0].png: the picture is not a readable PNG"},
        {set("active", QJsonArray{}), "active: no active entity set of type 0"},
        {set("active", QJsonArray{1, 2, 3, 0, 5}),
         "active[1]: a second active entity set of type 0"},
        {set("active", QJsonArray{1, 3, 0, 5, 1}),
         "active[4]: a second active entity set of type 0"},
        {set("active", QJsonArray{1, 3, 0}), "active: no active entity set of type 4"},
        {set("settings/angleSystem", 1),
         "settings.angleSystem: expected 0 (degrees), 2 (gons) or 3 (radians)"},
        {set("sets/2/hidden", true), "a hidden set that is on", 0, hiddenSet(0, L"Details", true)},
        {set("sets/0/visible", false), "a hidden set that is off", 0,
         hiddenSet(2, L"Stations", false)},
        {set("images/0/png", QJsonValue::Null), "an image without a picture", 0,
         [](CVELD& cad) {
             ASSERT_EQ(cad.GetNoImages(), 1);
             const pix::CDibImage* dib = cad.GetImage(0)->GetImage();
             EXPECT_TRUE(!dib || dib->GetQImage().isNull());
         }},
        {addViews(2), "as many views as the drawing", 2,
         [](CVELD& cad) {
             EXPECT_EQ(cad.GetView(0)->GetPresetView(), 3);
             EXPECT_EQ(cad.GetView(1)->GetPresetView(), 4);
         }},
        {set("settings/colors/grid", "#A0B1C2"), "an uppercase colour", 0,
         [](CVELD& cad) { EXPECT_EQ(GetClrGrid(&cad), GColor(0xC2B1A0)); },
         set("settings/colors/grid", "#a0b1c2")},
    };
    for (int width : {-3, -1, 0, 53, 211})
        cases.push_back({set("layers/2/lineWidth", width),
                         QStringLiteral("line width %1").arg(width), 0, [=](CVELD& cad) {
                             EXPECT_EQ(cad.GetData()->GetLayerTable().GetNo(2)->GetLineWidth(),
                                       width);
                         }});
    for (const auto& c : cases) {
        const std::string what = c.what.toStdString();
        QJsonObject root = sample;
        c.edit(root);
        WithViews target(c.views);
        if (!c.accepted)
            BuildSampleDrawing(target.cad);
        const QByteArray untouched = drawingfile::Dump(target.cad);
        QString error;
        const bool read = drawingfile::Read(target.cad, QJsonDocument(root).toJson(), error);
        if (!c.accepted) {
            EXPECT_FALSE(read) << what;
            EXPECT_TRUE(error.contains(c.what))
                << "wanted " << what << ", got " << error.toStdString();
            EXPECT_EQ(drawingfile::Dump(target.cad), untouched) << what;
            continue;
        }
        ASSERT_TRUE(read) << what << ": " << error.toStdString();
        c.accepted(target.cad);
        if (c.canonical)
            c.canonical(root);
        EXPECT_EQ(drawingfile::Write(target.cad), QJsonDocument(root).toJson()) << what;
    }
}
