// JSON keys and values in this file are ASCII literals: let them convert.
#undef QT_NO_CAST_FROM_ASCII
// Drawing files: the sample drawing survives save and load, plain and sealed;
// damaged and hand-edited files are refused with a message naming the fault
// and the open drawing stays as it was.
#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <array>
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

// The dialogs' walkthroughs rely on the sample showing every kind of item.
TEST(SampleDrawing, HoldsWhatTheDialogsNeedToShow) {
    CVELD cad;
    BuildSampleDrawing(cad);
    veld::CData* data = cad.GetData();
    unsigned frozen = 0, locked = 0, off = 0, xref = 0, priv = 0, withText = 0;
    for (unsigned i = 0; i < data->GetLayerTable().GetNoItems(); ++i) {
        const veld::CLayer* l = data->GetLayerTable().GetNo(i);
        frozen += l->IsFrozen();
        locked += l->IsLocked();
        off += l->IsOff();
        xref += l->IsXRef();
        priv += l->IsPrivate();
    }
    EXPECT_GE(data->GetLayerTable().GetNoItems(), 8u);
    EXPECT_TRUE(frozen && locked && off && xref && priv);
    for (unsigned i = 0; i < data->GetLtypeTable().GetNoItems(); ++i) {
        const veld::CLtype* t = data->GetLtypeTable().GetNo(i);
        for (unsigned j = 0; j < t->GetNoDashes(); ++j)
            withText += t->GetDash(j)->GetText() != nullptr;
    }
    EXPECT_GE(data->GetLtypeTable().GetNoItems(), 15u);  // a dozen beside the three built in
    EXPECT_GE(withText, 3u);
    bool font[2] = {};  // shape, TrueType
    for (unsigned i = 0; i < data->GetStyleTable().GetNoItems(); ++i)
        font[data->GetStyleTable().GetNo(i)->GetFont()->IsTrueType()] = true;
    EXPECT_GE(data->GetStyleTable().GetNoItems(), 3u);
    EXPECT_TRUE(font[0] && font[1]);
    // The hidden set: HandEditedFilesWithinTheRulesReadAndWriteBackAsTheyWere.
    const veld::CDrawingManager* sets = data->GetDrawingManager();
    for (unsigned type : {0u, 1u}) {
        ASSERT_NE(sets->GetActiveDrawing(type), nullptr);
        EXPECT_GT(sets->GetActiveDrawing(type)->GetEntTable()->GetNoEnts(), 20u);
    }
    EXPECT_GE(data->GetEntTable().GetNoEnts(), 100u);
    EXPECT_EQ(cad.GetNoImages(), 1);
}

TEST(DrawingFile, SaveAndLoadGiveTheSameDrawingPlainAndSealed) {
    QTemporaryDir dir;
    CVELD cad;
    BuildSampleDrawing(cad);
    SetAngleSystem(&cad, 2, 0.5, true);
    SetLtypeScale(&cad, 2.5);
    cad.SetOSnapper(true, 0x25);
    // Placed before its picture is loaded: the reader refuses an empty picture.
    cad.AddImage(std::make_unique<CVELDImage>(QStringLiteral("Sketch"), nullptr, 0.5, 10, 20));
    const QByteArray before = drawingfile::Write(cad);

    for (const char* password : {"", "s3cret pass"}) {
        QString error;
        const QString file = dir.filePath(*password ? "sealed.veld" : "plain.veld");
        ASSERT_TRUE(drawingfile::Save(cad, file, QString::fromLatin1(password), error))
            << error.toStdString();
        CVELD other;
        ScriptedPasswords request({L"s3cret pass"});
        ASSERT_TRUE(drawingfile::Load(other, file, &request, error)) << error.toStdString();
        EXPECT_EQ(drawingfile::Write(other), before) << password;
        EXPECT_EQ(request.calls, *password ? "ask " : "") << password;
        const QByteArray bytes = readFile(file);
        EXPECT_EQ(bytes.contains("Building A"), !*password) << "a sealed file shows no plaintext";
        EXPECT_FALSE(bytes.contains("s3cret")) << "nor the password";
    }
}

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

// The order of the questions and what damage the sealed file reader finds are
// tests/veld's; here: what a refusal tells the user, and that it never yields
// a drawing.
TEST(DrawingFile, RefusalsNameTheFileAndTheFaultAndNeverOpen) {
    QTemporaryDir dir;
    CVELD cad;
    BuildSampleDrawing(cad);
    QString error;
    const QString file = dir.filePath("bad.veld");
    ASSERT_TRUE(drawingfile::Save(cad, file, QStringLiteral("pw"), error));
    const QByteArray sealed = readFile(file);
    const QByteArray plain = drawingfile::Write(cad);
    QByteArray flipped = sealed;
    flipped[flipped.size() / 2] = static_cast<char>(flipped[flipped.size() / 2] ^ 0x10);
    QByteArray version = sealed;
    version[8] = 2;

    const char* const wrong = "bad.veld was not opened: wrong password or damaged file";
    const char* const notDrawing = "bad.veld: not a drawing file";
    // The right password: SaveAndLoadGiveTheSameDrawingPlainAndSealed.
    const struct {
        QByteArray bytes;
        std::vector<const wchar_t*> answers;  // null: cancel
        const char* calls;
        const char* message;
    } cases[] = {
        {sealed, {L"wrong"}, "ask retry ", wrong},
        {sealed, {nullptr}, "ask ", "bad.veld was not opened: no password was given"},
        {flipped, {L"pw"}, "ask retry ", wrong},
        {version, {L"pw"}, "", "bad.veld is damaged: its sealed content does not open"},
        {plain.left(plain.size() / 2), {}, "", notDrawing},
        {QByteArray(), {}, "", notDrawing},
    };
    for (const auto& c : cases) {
        QFile f(file);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(c.bytes);
        f.close();
        CVELD target;
        const QByteArray untouched = drawingfile::Dump(target);
        ScriptedPasswords request(c.answers);
        EXPECT_FALSE(drawingfile::Load(target, file, &request, error)) << c.message;
        EXPECT_EQ(request.calls, c.calls) << c.message;
        // The parser's own words on the fault follow a second ": ".
        EXPECT_EQ(error.section(QStringLiteral(": "), 0, 1).toStdString(), c.message);
        EXPECT_EQ(drawingfile::Dump(target), untouched) << c.message;
    }
}

// Endless or huge inputs are refused before a byte is read, and a save never
// turns a device, FIFO or folder into a drawing; the open drawing stays.
TEST(DrawingFile, OnlyRegularFilesWithinTheLimitAreOpenedOrReplaced) {
    QTemporaryDir dir;
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
    const QString notRegular = QStringLiteral("it is not a regular file");
    const struct {
        QString file;
        QString reason;
    } opens[] = {
        {fifo, notRegular},
        {zeroLink, notRegular},
        {QStringLiteral("/dev/zero"), notRegular},
        {dir.path(), QStringLiteral("it is a folder")},
        {huge, QStringLiteral("it is larger than %1 bytes").arg(drawingfile::kMaxFileBytes)},
    };
    CVELD cad;
    BuildSampleDrawing(cad);
    const QByteArray untouched = drawingfile::Dump(cad);
    for (const auto& o : opens) {
        QString error;
        EXPECT_FALSE(drawingfile::Load(cad, o.file, nullptr, error)) << o.file.toStdString();
        EXPECT_EQ(error, QFileInfo(o.file).fileName() + " cannot be opened: " + o.reason);
        EXPECT_EQ(drawingfile::Dump(cad), untouched) << o.file.toStdString();
    }
    for (const QString& target : {fifo, dir.path()}) {
        QString error;
        EXPECT_FALSE(drawingfile::Save(cad, target, QString(), error)) << target.toStdString();
        EXPECT_EQ(error, QFileInfo(target).fileName() + " cannot be saved: " + notRegular);
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
// lies in its range (veld/StoredRange.h), and a file holding one beyond it is
// refused naming the place; the settings whose setters guard them keep what
// they had. Probed at the limits of a double and of each range.
TEST(DrawingFile, StoredNumbersReadBackBitForBitOrAreRefusedByTheirRange) {
    namespace stored = veld::stored;
    using Set = std::function<void(CVELD&, double)>;
    using Get = std::function<double(CVELD&)>;
    const auto entity = [](CVELD& cad, veld::EntKind kind) {
        const veld::CEntTable& table = cad.GetData()->GetEntTable();
        for (unsigned i = 0; i < table.GetNoEnts(); ++i)
            if (table.GetEnt(i)->GetKind() == kind)
                return table.GetEnt(i);
        ADD_FAILURE() << "the sample drawing has no entity of the kind";
        return table.GetEnt(0);
    };
    // Value @p which of the view's snap (base East, North, interval East,
    // North, angle) and of the text entity (height, rotation, width factor).
    const auto snaps = [](CVELD& c) {
        std::array<double, 5> v;
        c.GetViewState(0)->GetGrid().GetSnap(v[0], v[1], v[2], v[3], v[4]);
        return v;
    };
    const auto getSnap = [=](int which) { return Get([=](CVELD& c) { return snaps(c)[which]; }); };
    const auto setSnap = [=](int which) {
        return Set([=](CVELD& c, double value) {
            std::array<double, 5> v = snaps(c);
            v[which] = value;
            CGrid& g = c.GetViewState(0)->GetGrid();
            g.SetSnap(g.IsSnapActive(), v[0], v[1], v[2], v[3], v[4]);
        });
    };
    const auto text = [=](CVELD& c) {
        return static_cast<veld::CEntText*>(entity(c, veld::EntKind::Text));
    };
    const auto texts = [=](CVELD& c) {
        const veld::CTextContext t = text(c)->GetText().GetContext();
        return std::array<double, 3>{t.GetHeight(), t.GetRotate(), t.GetWidthFactor()};
    };
    const auto getText = [=](int which) { return Get([=](CVELD& c) { return texts(c)[which]; }); };
    const auto setText = [=](int which) {
        return Set([=](CVELD& c, double value) {
            std::array<double, 3> v = texts(c);
            v[which] = value;
            const veld::TEXT_3D t = text(c)->GetText();
            text(c)->SetText(veld::TEXT_3D(t.GetContext().GetString(), t.GetStyle(), v[0],
                                           t.GetContext().GetSlant(), v[2], v[1], t.GetPoint(),
                                           t.GetAlignment(), 0));
        });
    };
    const auto ltype = [](CVELD& cad, const wchar_t* name) {
        return cad.GetData()->GetLtypeTable().Find(name);
    };
    const auto standard = [](CVELD& cad) {
        return cad.GetData()->GetStyleTable().Find(L"STANDARD");
    };
    const struct {
        const char* path;    // slash-separated; # stands for the index the lookup names
        const char* lookup;  // "kind=TEXT", "name=DASHED" in the list before #
        veld::StoredRange range;
        Set set;
        Get get;
        bool guarded = false;  // the setter refuses a value beyond the range
    } quantities[] = {
        {"settings/ltypeScale", "", stored::kLtypeScale,
         [](CVELD& c, double v) { SetLtypeScale(&c, v); },
         [](CVELD& c) { return GetLtypeScale(&c); }, true},
        {"settings/angleBase", "", stored::kAngleBase,
         [](CVELD& c, double v) { SetAngleSystem(&c, 2, v, false); },
         [](CVELD& c) {
             short system;
             double base;
             bool clockwise;
             GetAngleSystem(&c, system, base, clockwise);
             return base;
         },
         true},
        {"views/0/grid/baseEast", "", stored::kFinite, setSnap(0), getSnap(0)},
        {"views/0/grid/snapEast", "", stored::kFinite, setSnap(2), getSnap(2)},
        {"views/0/grid/snapAngle", "", stored::kFinite, setSnap(4), getSnap(4)},
        {"views/0/grid/gridNorth", "", stored::kFinite,
         [](CVELD& c, double v) { c.GetViewState(0)->GetGrid().SetGrid(true, 2.0, v); },
         [](CVELD& c) {
             double e, n;
             c.GetViewState(0)->GetGrid().GetGrid(e, n);
             return n;
         }},
        {"entities/#/points/0/1", "kind=LINE", stored::kCoordinate,
         [&](CVELD& c, double v) {
             std::vector<ulo::geom::PNT_3D> p = entity(c, veld::EntKind::Line)->GetPoints();
             p[0].y = v;
             entity(c, veld::EntKind::Line)->SetPoints(p);
         },
         [&](CVELD& c) { return entity(c, veld::EntKind::Line)->GetPoints()[0].y; }},
        {"entities/#/radius", "kind=CIRCLE", stored::kLength,
         [&](CVELD& c, double v) { entity(c, veld::EntKind::Circle)->SetRadius(v); },
         [&](CVELD& c) { return entity(c, veld::EntKind::Circle)->GetRadius(); }},
        {"entities/#/text/height", "kind=TEXT", stored::kLength, setText(0), getText(0)},
        {"entities/#/text/rotation", "kind=TEXT", stored::kTextAngle, setText(1), getText(1)},
        {"entities/#/text/width", "kind=TEXT", stored::kWidthFactor, setText(2), getText(2)},
        {"styles/#/fixedHeight", "name=STANDARD", stored::kLength,
         [&](CVELD& c, double v) { standard(c)->SetFixedHeight(v); },
         [&](CVELD& c) { return standard(c)->GetFixedHeight(); }},
        {"styles/#/widthScale", "name=STANDARD", stored::kWidthFactor,
         [&](CVELD& c, double v) { standard(c)->SetWidthScale(v); },
         [&](CVELD& c) { return standard(c)->GetWidthScale(); }},
        {"styles/#/oblique", "name=STANDARD", stored::kOblique,
         [&](CVELD& c, double v) { standard(c)->SetOblique(v); },
         [&](CVELD& c) { return standard(c)->GetOblique(); }},
        {"ltypes/#/elements/0", "name=DASHED", stored::kFinite,
         [&](CVELD& c, double v) {
             veld::CLtypeComplexDashSeq seq;
             seq.AddDashDouble(v);
             seq.AddDashDouble(-1.0);
             ltype(c, L"DASHED")->Copy(veld::CLtype(L"DASHED", L"Dashed", std::move(seq), 0));
         },
         [&](CVELD& c) { return ltype(c, L"DASHED")->GetDash(0)->GetDouble(); }},
        {"ltypes/#/elements/2/height", "name=GAS_LINE", stored::kFinite,
         [&](CVELD& c, double v) {
             veld::CLtypeComplexDashSeq seq;
             seq.AddDashDouble(4.0);
             seq.AddDashDouble(-0.8);
             seq.AddDashText(veld::TEXT_3D(L"GAS", standard(c), v, 0, 1, 0, {0, 0, 0}, 0, 0));
             seq.AddDashDouble(-2.0);
             ltype(c, L"GAS_LINE")->Copy(veld::CLtype(L"GAS_LINE", L"Gas", std::move(seq), 0));
         },
         [&](CVELD& c) {
             return ltype(c, L"GAS_LINE")->GetDash(2)->GetText()->GetContext().GetHeight();
         }},
        {"images/0/scale", "", stored::kImageScale,
         [](CVELD& c, double v) {
             CVELDImage* image = c.GetImage(0);
             image->Set(v, image->GetXMin(), image->GetYMin());
         },
         [](CVELD& c) { return c.GetImage(0)->GetScale(); }},
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
    for (const auto& q : quantities) {
        std::vector<double> values(std::begin(limits), std::end(limits));
        for (const double edge : {q.range.lo, q.range.hi})
            for (const double v : {edge, std::nextafter(edge, -kMax), std::nextafter(edge, kMax)})
                values.push_back(v);
        for (const double v : values) {
            const std::string what =
                std::string(q.path) + " = " + QString::number(v, 'g', 17).toStdString();
            WithViews sample(1);
            CVELD& cad = sample.cad;
            BuildSampleDrawing(cad);
            const double before = q.get(cad);
            if (q.range.Holds(v)) {
                q.set(cad, v);
                const double held = q.get(cad);
                EXPECT_TRUE(q.range.Holds(held)) << what;
                EXPECT_FALSE(held == 0 && std::signbit(held)) << what << ": a negative zero";
                WithViews reopened(1);
                QString error;
                ASSERT_TRUE(drawingfile::Read(reopened.cad, drawingfile::Write(cad), error))
                    << what << ": " << error.toStdString();
                EXPECT_EQ(bits(q.get(reopened.cad)), bits(held)) << what;
                continue;
            }
            if (q.guarded) {
                q.set(cad, v);
                EXPECT_EQ(bits(q.get(cad)), bits(before)) << what << ": the setter took it";
            }
            // Hand-edited: the file holds the number.
            QJsonObject root = QJsonDocument::fromJson(drawingfile::Write(cad)).object();
            QString place = QString::fromLatin1(q.path);
            if (place.contains(u'#')) {
                const QStringList look = QString::fromLatin1(q.lookup).split(u'=');
                const QJsonArray list = root[place.section(u'/', 0, 0)].toArray();
                qsizetype at = 0;
                while (at < list.size() && list[at][look[0]].toString() != look[1])
                    ++at;
                place.replace(u'#', QString::number(at));
            }
            root = with(root, place.split(u'/'), v).toObject();
            WithViews target(1);
            QString error;
            EXPECT_FALSE(drawingfile::Read(target.cad, QJsonDocument(root).toJson(), error))
                << what;
            place.replace(QRegularExpression(QStringLiteral("/(\\d+)")), QStringLiteral("[\\1]"));
            place.replace(u'/', u'.');
            EXPECT_TRUE(error.startsWith(place + ": ")) << error.toStdString();
            EXPECT_TRUE(error.contains(" is out of range (")) << error.toStdString();
        }
    }
}

TEST(DrawingFile, HandEditedFilesNameThePlaceOfTheFault) {
    const QJsonObject sample = QJsonDocument::fromJson(sampleJson()).object();
    // The sample's active sets, in type order: Plan (0), Survey (1), Stations (2), Basemap (4);
    // Details is a second set of type 0.
    ASSERT_EQ(sample["active"].toArray(), (QJsonArray{1, 3, 0, 5}));
    const struct {
        Edit edit;
        const char* message;  // names the case too
        int views = 0;        // of the drawing read into
    } cases[] = {
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
    };
    for (const auto& c : cases) {
        QJsonObject root = sample;
        c.edit(root);
        WithViews target(c.views);
        BuildSampleDrawing(target.cad);
        const QByteArray untouched = drawingfile::Dump(target.cad);
        QString error;
        EXPECT_FALSE(drawingfile::Read(target.cad, QJsonDocument(root).toJson(), error))
            << c.message;
        EXPECT_TRUE(error.contains(QString::fromLatin1(c.message)))
            << "wanted " << c.message << ", got " << error.toStdString();
        EXPECT_EQ(drawingfile::Dump(target.cad), untouched) << c.message;
    }
}

TEST(DrawingFile, HandEditedFilesWithinTheRulesReadAndWriteBackAsTheyWere) {
    const QJsonObject sample = QJsonDocument::fromJson(sampleJson()).object();
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
        QString name;
        Edit edit;
        Check check;
        int views = 0;        // of the drawing read into
        Edit canonical = {};  // how the writer writes the edit, when not as it was read
    };
    std::vector<Case> cases = {
        {"a hidden set that is on", set("sets/2/hidden", true), hiddenSet(0, L"Details", true)},
        {"a hidden set that is off", set("sets/0/visible", false),
         hiddenSet(2, L"Stations", false)},
        {"an image without a picture", set("images/0/png", QJsonValue::Null),
         [](CVELD& cad) {
             ASSERT_EQ(cad.GetNoImages(), 1);
             const pix::CDibImage* dib = cad.GetImage(0)->GetImage();
             EXPECT_TRUE(!dib || dib->GetQImage().isNull());
         }},
        {"as many views as the drawing", addViews(2),
         [](CVELD& cad) {
             EXPECT_EQ(cad.GetView(0)->GetPresetView(), 3);
             EXPECT_EQ(cad.GetView(1)->GetPresetView(), 4);
         },
         2},
        {"an uppercase colour", set("settings/colors/grid", "#A0B1C2"),
         [](CVELD& cad) { EXPECT_EQ(GetClrGrid(&cad), GColor(0xC2B1A0)); }, 0,
         set("settings/colors/grid", "#a0b1c2")},
    };
    for (int width : {-3, -1, 0, 53, 211})
        cases.push_back({QStringLiteral("line width %1").arg(width),
                         set("layers/2/lineWidth", width), [=](CVELD& cad) {
                             EXPECT_EQ(cad.GetData()->GetLayerTable().GetNo(2)->GetLineWidth(),
                                       width);
                         }});
    for (const auto& c : cases) {
        QJsonObject root = sample;
        c.edit(root);
        WithViews target(c.views);
        QString error;
        ASSERT_TRUE(drawingfile::Read(target.cad, QJsonDocument(root).toJson(), error))
            << c.name.toStdString() << ": " << error.toStdString();
        c.check(target.cad);
        if (c.canonical)
            c.canonical(root);
        EXPECT_EQ(drawingfile::Write(target.cad), QJsonDocument(root).toJson())
            << c.name.toStdString();
    }
}
