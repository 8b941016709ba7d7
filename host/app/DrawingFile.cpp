// The JSON keys are ASCII literals throughout: this file lets them convert.
#undef QT_NO_CAST_FROM_ASCII
#include "DrawingFile.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <new>
#include <set>

#include <unistd.h>

#include "JsonScan.h"
#include "MouseCursorInfo.h"
#include "VELD.h"
#include "ulo/RegularFile.h"
#include "veld/SealedFile.h"
#include "veld/StoredRange.h"

namespace drawingfile {

namespace {

constexpr int kVersion = 1;
const char* const kFormat = "veld-drawing";

QString q(const ulo::WString& s) {
    return s.ToQString();
}
ulo::WString w(const QString& s) {
    return ulo::WString::FromQString(s);
}

QString colourText(GColor c) {
    return QStringLiteral("#%1%2%3")
        .arg(c.Red(), 2, 16, QLatin1Char('0'))
        .arg(c.Green(), 2, 16, QLatin1Char('0'))
        .arg(c.Blue(), 2, 16, QLatin1Char('0'));
}

bool isHexDigit(QChar c) {
    const char16_t u = c.unicode();
    return (u >= '0' && u <= '9') || (u >= 'a' && u <= 'f') || (u >= 'A' && u <= 'F');
}

QJsonArray point(const ulo::geom::PNT_3D& p) {
    return QJsonArray{p.x, p.y, p.z};
}

// ---------------------------------------------------------------- writing

QJsonObject writeStyle(const veld::CStyle* s) {
    return QJsonObject{{"name", q(s->GetName())},
                       {"flags", static_cast<qint64>(s->GetFlags())},
                       {"font", s->GetFont() ? q(s->GetFont()->GetName()) : QString()},
                       {"fixedHeight", s->GetFixedHeight()},
                       {"lastHeight", s->GetLastHeight()},
                       {"widthScale", s->GetWidthScale()},
                       {"oblique", s->GetOblique()},
                       {"bold", s->IsBold()},
                       {"italic", s->IsItalic()},
                       {"horizontal", s->IsHoriz()}};
}

QJsonObject writeLtype(const veld::CLtype* t) {
    QJsonArray elements;
    for (unsigned i = 0; i < t->GetNoDashes(); ++i) {
        const veld::ILtypeComplexDash* d = t->GetDash(i);
        if (d->IsDouble()) {
            elements.append(d->GetDouble());
            continue;
        }
        const veld::TEXT_3D& text = *d->GetText();
        const veld::CTextContext& c = text.GetContext();
        elements.append(
            QJsonObject{{"text", q(c.GetString())},
                        {"style", text.GetStyle() ? q(text.GetStyle()->GetName()) : QString()},
                        {"height", c.GetHeight()},
                        {"rotation", c.GetRotate()},
                        {"slant", c.GetSlant()},
                        {"width", c.GetWidthFactor()},
                        {"at", point(text.GetPoint())},
                        {"align", text.GetAlignment()}});
    }
    return QJsonObject{{"name", q(t->GetName())},
                       {"flags", static_cast<qint64>(t->GetFlags())},
                       {"desc", q(t->GetDesc())},
                       {"elements", elements}};
}

QJsonObject writeLayer(const veld::CLayer* l) {
    return QJsonObject{{"name", q(l->GetName())},
                       {"flags", static_cast<qint64>(l->GetFlags())},
                       {"color", l->GetColor()},
                       {"ltype", l->GetLtype() ? q(l->GetLtype()->GetName()) : QString()},
                       {"lineWidth", static_cast<int>(l->GetLineWidth())}};
}

QJsonObject writeEnt(const veld::CEnt* e, const std::map<const veld::CDrawing*, int>& sets) {
    QJsonArray points;
    for (const auto& p : e->GetPoints())
        points.append(point(p));
    QJsonObject o{{"handle", static_cast<qint64>(e->GetHandle())},
                  {"kind", QString::fromWCharArray(e->GetKindName())},
                  {"set", sets.at(e->GetDrawing())},
                  {"layer", e->GetLayer() ? q(e->GetLayer()->GetName()) : QString()},
                  {"ltype", e->GetLtype() ? q(e->GetLtype()->GetName()) : QString()},
                  {"color", e->GetColor()},
                  {"user", static_cast<qint64>(e->GetUserType()->GetID())},
                  {"points", points}};
    switch (e->GetKind()) {
        case veld::EntKind::Circle:
            o["radius"] = e->GetRadius();
            break;
        case veld::EntKind::Polyline:
            o["closed"] = e->IsClosed();
            break;
        case veld::EntKind::Text: {
            const auto* t = static_cast<const veld::CEntText*>(e);
            const veld::TEXT_3D text = t->GetText();
            const veld::CTextContext& c = text.GetContext();
            o["text"] =
                QJsonObject{{"string", q(c.GetString())},
                            {"style", t->GetStyle() ? q(t->GetStyle()->GetName()) : QString()},
                            {"height", c.GetHeight()},
                            {"rotation", c.GetRotate()},
                            {"slant", c.GetSlant()},
                            {"width", c.GetWidthFactor()},
                            {"align", t->GetAlignment()}};
            break;
        }
        default:
            break;
    }
    return o;
}

QJsonObject writeGrid(const CGrid& g) {
    double be, bn, se, sn, angle, ge, gn;
    g.GetSnap(be, bn, se, sn, angle);
    g.GetGrid(ge, gn);
    return QJsonObject{{"gridOn", g.IsGridActive()},
                       {"gridBySnap", g.IsGridBySnap()},
                       {"gridEast", g.IsGridBySnap() ? 0.0 : ge},
                       {"gridNorth", g.IsGridBySnap() ? 0.0 : gn},
                       {"snapOn", g.IsSnapActive()},
                       {"baseEast", be},
                       {"baseNorth", bn},
                       {"snapEast", se},
                       {"snapNorth", sn},
                       {"snapAngle", angle}};
}

/// @p image with the bits past its last pixel in each row cleared. A row of a
/// one-bit picture ends inside a byte, and the PNG encoder writes that whole
/// byte: the rest of it holds whatever the memory held before.
QImage withClearPadding(const QImage& image) {
    const int spare = image.depth() == 1 ? (8 - image.width() % 8) % 8 : 0;
    if (spare == 0)
        return image;
    QImage clean = image.copy();
    const int last = image.width() / 8;
    const auto keep = static_cast<uchar>(
        clean.format() == QImage::Format_MonoLSB ? 0xFF >> spare : (0xFF << spare) & 0xFF);
    for (int y = 0; y < clean.height(); ++y)
        clean.scanLine(y)[last] &= keep;
    return clean;
}

QJsonObject writeImage(const CVELDImage& image) {
    QByteArray png;
    if (image.GetImage() && !image.GetImage()->GetQImage().isNull()) {
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        withClearPadding(image.GetImage()->GetQImage()).save(&buffer, "PNG");
    }
    // An image placed without its picture writes null: an empty text is what
    // a damaged file shows, and the reader refuses it.
    return QJsonObject{{"name", image.GetName()},
                       {"scale", image.GetScale()},
                       {"xMin", image.GetXMin()},
                       {"yMin", image.GetYMin()},
                       {"png", png.isEmpty() ? QJsonValue(QJsonValue::Null)
                                             : QJsonValue(QString::fromLatin1(png.toBase64()))}};
}

QJsonObject writeObject(const CVELD& constCad) {
    // The model's iterators take a non-const drawing; nothing here changes it.
    CVELD& cad = const_cast<CVELD&>(constCad);
    veld::CData* data = cad.GetData();

    QJsonArray styles, ltypes, layers, sets, active, ents, views, images;
    for (unsigned i = 0; i < data->GetStyleTable().GetNoItems(); ++i)
        styles.append(writeStyle(data->GetStyleTable().GetNo(i)));
    for (unsigned i = 0; i < data->GetLtypeTable().GetNoItems(); ++i)
        ltypes.append(writeLtype(data->GetLtypeTable().GetNo(i)));
    for (unsigned i = 0; i < data->GetLayerTable().GetNoItems(); ++i)
        layers.append(writeLayer(data->GetLayerTable().GetNo(i)));

    const veld::CDrawingManager* manager = data->GetDrawingManager();
    std::map<const veld::CDrawing*, int> setIndex;
    for (unsigned i = 0; i < manager->GetNoDrawings(); ++i) {
        const veld::CDrawing* d = manager->GetDrawingAtPos(i);
        setIndex[d] = static_cast<int>(i);
        sets.append(QJsonObject{{"type", static_cast<qint64>(d->GetDrawingType()->GetID())},
                                {"name", q(d->GetName())},
                                {"flags", static_cast<qint64>(d->GetFlags())},
                                {"visible", d->IsVisible()},
                                {"locked", d->IsLocked()},
                                {"hidden", d->IsHidden()},
                                {"useColor", d->UseColor()},
                                {"color", static_cast<qint64>(d->GetColor())},
                                {"refs", static_cast<qint64>(d->GetNoRef())}});
    }
    for (const veld::CDrawing* d : manager->GetActiveDrawings())
        active.append(setIndex.at(d));
    // Entities of a set taken out of the drawing stay with that set (for
    // undo) and are not part of the drawing.
    const veld::CEntTable& table = data->GetEntTable();
    for (unsigned i = 0; i < table.GetNoEnts(); ++i) {
        const veld::CEnt* e = table.GetEnt(i);
        if (setIndex.count(e->GetDrawing()))
            ents.append(writeEnt(e, setIndex));
    }

    const CVELD::Settings& s = cad.GetSettings();
    const QJsonObject settings{{"ltypeScale", s.ltypeScale},
                               {"angleSystem", s.angleSystem},
                               {"angleBase", s.angleBase},
                               {"angleClockwise", s.angleClockwise},
                               {"crossDim", static_cast<qint64>(s.crossDim)},
                               {"deltaPick", static_cast<qint64>(s.deltaPick)},
                               {"osnapOn", cad.IsOSnapperOn()},
                               {"osnapMask", static_cast<qint64>(cad.GetOSnapperMask())},
                               {"colors", QJsonObject{{"background", colourText(s.background)},
                                                      {"grid", colourText(s.grid)},
                                                      {"selected", colourText(s.selected)},
                                                      {"crossHair", colourText(s.crossHair)}}}};
    const QJsonObject current{{"layer", s.curLayer ? q(s.curLayer->GetName()) : QString()},
                              {"ltype", s.curLtype ? q(s.curLtype->GetName()) : QString()},
                              {"style", s.curStyle ? q(s.curStyle->GetName()) : QString()}};

    for (int i = 0; i < cad.GetNoViews(); ++i) {
        const CViewState* v = cad.GetViewState(i);
        views.append(
            QJsonObject{{"grid", writeGrid(v->GetGrid())}, {"preset", v->GetPresetView()}});
    }
    for (int i = 0; i < cad.GetNoImages(); ++i)
        images.append(writeImage(*cad.GetImage(i)));

    return QJsonObject{{"format", kFormat},    {"version", kVersion}, {"styles", styles},
                       {"ltypes", ltypes},     {"layers", layers},    {"sets", sets},
                       {"active", active},     {"entities", ents},    {"current", current},
                       {"settings", settings}, {"views", views},      {"images", images}};
}

// ---------------------------------------------------------------- reading

/// A refusal while reading, with the place in the document it concerns.
struct Refusal {
    QString where;
    QString what;
};

/// A value of the document and where it stands. Values are read where they
/// stand in the checked bytes; the place ("layers[2].ltype") is only spelt
/// out for a refusal, from the values this one was reached through, which
/// outlive it.
class In {
public:
    /// The document's top value.
    explicit In(const char* v) : v_(v) {}

    In operator[](const char* key) const {
        if (jsonscan::KindOf(v_) != jsonscan::Kind::Object)
            Fail("expected an object");
        IndexMembers();
        const std::string_view k(key);
        const char* found = nullptr;
        if (members_ <= kMembers) {
            for (int i = 0; i < members_ && !found; ++i)
                if (jsonscan::Equals(member_[i].key, k))
                    found = member_[i].value;
        } else {
            jsonscan::Members m(v_);
            for (const char *name, *value; !found && m.Next(name, value);)
                if (jsonscan::Equals(name, k))
                    found = value;
        }
        return In(found, this, key, -1);
    }
    /// The element at @p i (missing past the end); cheapest in order.
    In At(qsizetype i) const {
        if (jsonscan::KindOf(v_) != jsonscan::Kind::Array)
            return In(nullptr, this, nullptr, i);
        if (i < atIndex_ || atIndex_ < 0) {
            elements_ = jsonscan::Elements(v_);
            atIndex_ = -1;
        }
        while (atIndex_ < i && (at_ = elements_.Next()))
            ++atIndex_;
        if (!at_)
            atIndex_ = -1;
        return In(atIndex_ == i ? at_ : nullptr, this, nullptr, i);
    }
    qsizetype Size() const {
        if (jsonscan::KindOf(v_) != jsonscan::Kind::Array)
            Fail("expected a list");
        if (size_ < 0) {
            size_ = 0;
            for (jsonscan::Elements e(v_); e.Next();)
                ++size_;
        }
        return size_;
    }
    bool IsObject() const { return jsonscan::KindOf(v_) == jsonscan::Kind::Object; }
    bool IsNull() const { return jsonscan::KindOf(v_) == jsonscan::Kind::Null; }
    /// The number, which must lie in @p range (veld/StoredRange.h).
    double Number(veld::StoredRange range) const {
        if (jsonscan::KindOf(v_) != jsonscan::Kind::Number)
            Fail("expected a number");
        const double d = jsonscan::ToNumber(v_);
        if (!range.Holds(d))
            Fail(QStringLiteral("%1 is out of range (%2 to %3)")
                     .arg(d, 0, 'g', 17)
                     .arg(range.lo, 0, 'g', 17)
                     .arg(range.hi, 0, 'g', 17));
        return d;
    }
    qint64 Whole(qint64 lo, qint64 hi) const {
        const double d = Number({static_cast<double>(lo), static_cast<double>(hi)});
        if (d != std::floor(d))
            Fail(QStringLiteral("expected a whole number, found %1").arg(d));
        return static_cast<qint64>(d);
    }
    bool Bool() const {
        if (jsonscan::KindOf(v_) != jsonscan::Kind::Bool)
            Fail("expected true or false");
        return jsonscan::ToBool(v_);
    }
    QString Text() const {
        if (jsonscan::KindOf(v_) != jsonscan::Kind::String)
            Fail("expected a text");
        return jsonscan::ToString(v_);
    }
    /// The text as the model keeps names and strings.
    ulo::WString WText() const {
        if (jsonscan::KindOf(v_) != jsonscan::Kind::String)
            Fail("expected a text");
        return ulo::WString(jsonscan::ToWString(v_));
    }
    QString Name() const {
        const QString s = Text();
        if (s.trimmed().isEmpty())
            Fail("a name may not be empty");
        return s;
    }
    /// Name() as the model keeps names.
    ulo::WString WName() const {
        ulo::WString s = WText();
        if (std::all_of(s.str().begin(), s.str().end(), [](wchar_t c) {
                return c <= 0xFFFF && QChar(static_cast<char16_t>(c)).isSpace();
            }))
            Fail("a name may not be empty");
        return s;
    }
    GColor Colour() const {
        const QString s = Text();
        // Digit by digit: toUInt alone lets a sign, blanks or "0x" through.
        bool ok = s.size() == 7 && s[0] == '#';
        for (qsizetype i = 1; ok && i < s.size(); ++i)
            ok = isHexDigit(s[i]);
        if (!ok)
            Fail(QStringLiteral("expected a colour \"#rrggbb\", found \"%1\"").arg(s));
        const unsigned rgb = s.mid(1).toUInt(nullptr, 16);
        return GColor(((rgb & 0xFF) << 16) | (rgb & 0xFF00) | ((rgb >> 16) & 0xFF));
    }
    ulo::geom::PNT_3D Point(veld::StoredRange range = veld::stored::kCoordinate) const {
        if (Size() != 3)
            Fail("expected a point [x, y, z]");
        return {At(0).Number(range), At(1).Number(range), At(2).Number(range)};
    }
    [[noreturn]] void Fail(const QString& what) const { throw Refusal{Where(), what}; }

private:
    In(const char* v, const In* parent, const char* key, qsizetype index)
        : v_(v), parent_(parent), key_(key), index_(index) {}

    QString Where() const {
        if (!parent_)
            return QString();
        const QString up = parent_->Where();
        if (!key_)
            return up + '[' + QString::number(index_) + ']';
        return up.isEmpty() ? QString::fromLatin1(key_) : up + '.' + key_;
    }
    /// Notes where the members of an object stand, once: an entity is asked
    /// for each of its members in turn. A key given twice is refused: which
    /// of its values the writer meant is anybody's guess.
    void IndexMembers() const {
        if (members_ >= 0)
            return;
        members_ = 0;
        std::set<QString> many;  // keys of objects too large to note
        jsonscan::Members m(v_);
        for (const char *name, *value; m.Next(name, value);) {
            bool twice = false;
            if (members_ < kMembers) {
                for (int i = 0; i < members_ && !twice; ++i)
                    twice = jsonscan::SameString(member_[i].key, name);
                member_[members_] = {name, value};
            } else {
                if (members_ == kMembers)
                    for (const Member& known : member_)
                        many.insert(jsonscan::ToString(known.key));
                twice = !many.insert(jsonscan::ToString(name)).second;
            }
            if (twice)
                Fail(QStringLiteral("the key \"%1\" appears twice").arg(jsonscan::ToString(name)));
            ++members_;
        }
    }

    static constexpr int kMembers = 16;
    struct Member {
        const char* key;
        const char* value;
    };

    const char* v_;  // null: missing
    const In* parent_ = nullptr;
    const char* key_ = nullptr;  // null: an element of a list
    qsizetype index_ = -1;
    mutable int members_ = -1;  // above kMembers: too many to note
    mutable Member member_[kMembers];
    mutable qsizetype size_ = -1;
    mutable jsonscan::Elements elements_{"[]"};
    mutable const char* at_ = nullptr;
    mutable qsizetype atIndex_ = -1;
};

/// Everything read, held apart from the CAD instance until all of it checked.
struct Parsed {
    std::unique_ptr<veld::CData> data = std::make_unique<veld::CData>();
    CVELD::Settings settings;
    bool osnapOn = false;
    unsigned osnapMask = 0;
    veld::CLayer* curLayer = nullptr;
    veld::CLtype* curLtype = nullptr;
    veld::CStyle* curStyle = nullptr;
    struct View {
        CGrid grid;
        int preset = 1;
    };
    std::vector<View> views;
    std::vector<std::unique_ptr<CVELDImage>> images;
};

/// Empties a table of a new drawing, keeping its items so that the file's
/// items of those names take them over (the drawing's own ByBlock, ByLayer,
/// Continuous, layer 0 and standard style stay the same objects).
template <class T>
std::vector<ulo::RefPtr<T>> takeDefaults(veld::ITable<T>& table) {
    std::vector<ulo::RefPtr<T>> kept;
    while (table.GetNoItems() > 0) {
        T* item = table.GetNo(0);
        kept.push_back(ulo::RefPtr<T>::Share(item));
        table.Remove(item);
    }
    return kept;
}

/// The item of @p table named by the text at @p in.
template <class T>
T* findItem(const veld::ITable<T>& table, const In& in, const char* what) {
    const ulo::WString name = in.WText();
    T* item = table.Find(name);
    if (!item)
        in.Fail(QStringLiteral("no %1 \"%2\"").arg(QLatin1String(what), q(name)));
    return item;
}
veld::CStyle* findStyle(veld::CData& data, const In& in) {
    return findItem(data.GetStyleTable(), in, "text style");
}
veld::CLtype* findLtype(veld::CData& data, const In& in) {
    return findItem(data.GetLtypeTable(), in, "line type");
}
veld::CLayer* findLayer(veld::CData& data, const In& in) {
    return findItem(data.GetLayerTable(), in, "layer");
}

unsigned flags(const In& in) {
    return static_cast<unsigned>(in.Whole(0, 0xFFFFFFFF));
}

/// The reader of one table's list, shared by the tables: for each entry its
/// name (once in the table), the table's own values (@p Entry::Read, checked
/// before the item is made), the item (the kept default of the same name
/// taken over with @p Entry::TakeOver, or a new one from @p Entry::Create),
/// its flags and the values the table reads last (@p Entry::Finish); then
/// the table adds it.
template <class Entry, class T>
void readTable(veld::CData& data, veld::ITable<T>& table, const In& list) {
    auto kept = takeDefaults(table);
    table.Reserve(static_cast<std::size_t>(list.Size()));
    for (qsizetype i = 0; i < list.Size(); ++i) {
        const In in = list.At(i);
        const In nameIn = in["name"];
        const ulo::WString name = nameIn.WName();
        if (table.Find(name))
            nameIn.Fail(QStringLiteral("\"%1\" appears twice").arg(q(name)));
        Entry entry = Entry::Read(data, in);
        ulo::RefPtr<T> item;
        const auto old = std::find_if(kept.begin(), kept.end(), [&](const ulo::RefPtr<T>& k) {
            return k->GetName().CompareIgnoreCase(name) == 0;
        });
        if (old != kept.end()) {
            item = *old;
            item->SetName(name);
            entry.TakeOver(*item, name);
        } else {
            item = ulo::RefPtr<T>::Adopt(entry.Create(data, name));
        }
        item->SetFlags(flags(in["flags"]));
        entry.Finish(*item, in);
        table.Add(item.get());
    }
}

struct StyleEntry {
    const veld::ICADFont* font;

    static StyleEntry Read(veld::CData&, const In& s) {
        const QString fontName = s["font"].Text();
        const veld::ICADFont* font = veld::CFontTable::GetInstance().Find(w(fontName));
        if (!font)
            s["font"].Fail(QStringLiteral("no font \"%1\"").arg(fontName));
        return {font};
    }
    void TakeOver(veld::CStyle& style, const ulo::WString&) const { style.SetFont(font); }
    veld::CStyle* Create(veld::CData& data, const ulo::WString& name) const {
        return data.GetObjectFactory()->CreateStyle(name, font, 0, 1, 0, 0, 0, 0);
    }
    void Finish(veld::CStyle& style, const In& s) const {
        style.SetFixedHeight(s["fixedHeight"].Number(veld::stored::kLength));
        style.SetLastHeight(s["lastHeight"].Number(veld::stored::kLength));
        style.SetWidthScale(s["widthScale"].Number(veld::stored::kWidthFactor));
        style.SetOblique(s["oblique"].Number(veld::stored::kOblique));
        style.SetBold(s["bold"].Bool());
        style.SetItalic(s["italic"].Bool());
        style.SetHoriz(s["horizontal"].Bool());
    }
};

struct LtypeEntry {
    veld::CLtypeComplexDashSeq seq;
    QString desc;

    static LtypeEntry Read(veld::CData& data, const In& t) {
        LtypeEntry entry;
        const In elements = t["elements"];
        for (qsizetype j = 0; j < elements.Size(); ++j) {
            const In e = elements.At(j);
            if (!e.IsObject()) {
                entry.seq.AddDashDouble(e.Number(veld::stored::kFinite));
                continue;
            }
            // Texts inside line types keep what a line type library gave them.
            constexpr veld::StoredRange any = veld::stored::kFinite;
            entry.seq.AddDashText(veld::TEXT_3D(
                w(e["text"].Text()), findStyle(data, e["style"]), e["height"].Number(any),
                e["slant"].Number(any), e["width"].Number(any), e["rotation"].Number(any),
                e["at"].Point(any), static_cast<unsigned short>(e["align"].Whole(0, 11)), 0));
        }
        entry.desc = t["desc"].Text();
        return entry;
    }
    void TakeOver(veld::CLtype& ltype, const ulo::WString& name) {
        ltype.Copy(veld::CLtype(name, w(desc), std::move(seq), 0));
    }
    veld::CLtype* Create(veld::CData& data, const ulo::WString& name) {
        return data.GetObjectFactory()->CreateLtype(name, w(desc), std::move(seq), 0, 0);
    }
    void Finish(veld::CLtype&, const In&) const {}
};

struct LayerEntry {
    veld::CLtype* ltype;
    unsigned short colour;
    veld::enumLineWidth width;

    static LayerEntry Read(veld::CData& data, const In& l) {
        const In ltypeIn = l["ltype"];
        veld::CLtype* ltype = findLtype(data, ltypeIn);
        // ByLayer would refer the layer to itself, ByBlock to no block at all.
        if (ltype->IsByLayer() || ltype->IsByBlock())
            ltypeIn.Fail(
                QStringLiteral("a layer needs a real line type, not \"%1\"").arg(ltypeIn.Text()));
        const auto colour = static_cast<unsigned short>(l["color"].Whole(1, 255));
        const In widthIn = l["lineWidth"];
        const auto width = static_cast<int>(widthIn.Whole(-3, 211));
        if (!veld::IsValidLineWidth(width))
            widthIn.Fail(QStringLiteral("%1 is not a standard line width").arg(width));
        return {ltype, colour, static_cast<veld::enumLineWidth>(width)};
    }
    void TakeOver(veld::CLayer& layer, const ulo::WString&) const {
        layer.SetLtype(ltype);
        layer.SetColor(colour);
        layer.SetLineWidth(width);
    }
    veld::CLayer* Create(veld::CData& data, const ulo::WString& name) const {
        return data.GetObjectFactory()->CreateLayer(name, ltype, colour, width, 0, 0);
    }
    void Finish(veld::CLayer&, const In&) const {}
};

void readStyles(veld::CData& data, const In& list) {
    readTable<StyleEntry>(data, data.GetStyleTable(), list);
    if (data.GetStyleTable().GetNoItems() == 0)
        list.Fail("a drawing needs at least one text style");
}

void readLtypes(veld::CData& data, const In& list) {
    readTable<LtypeEntry>(data, data.GetLtypeTable(), list);
    for (const wchar_t* needed : {L"ByBlock", L"ByLayer", L"Continuous"})
        if (!data.GetLtypeTable().Find(needed))
            list.Fail(QStringLiteral("the line type \"%1\" is missing")
                          .arg(QString::fromWCharArray(needed)));
}

void readLayers(veld::CData& data, const In& list) {
    readTable<LayerEntry>(data, data.GetLayerTable(), list);
    if (!data.GetLayerTable().Find(L"0"))
        list.Fail("the layer \"0\" is missing");
}

std::vector<veld::CDrawing*> readSets(veld::CData& data, const In& list, const In& active) {
    veld::CDrawingManager* manager = data.GetDrawingManager();
    while (manager->GetNoDrawings() > 0)
        manager->RemoveDrawing(manager->GetDrawingAtPos(0));
    std::vector<veld::CDrawing*> sets;
    for (qsizetype i = 0; i < list.Size(); ++i) {
        const In s = list.At(i);
        const In typeIn = s["type"];
        const auto type = static_cast<unsigned>(typeIn.Whole(0, 0xFFFFFFFF));
        if (!manager->GetDrawingType(type))
            typeIn.Fail(QStringLiteral("no entity set type %1").arg(type));
        const QString name = s["name"].Name();
        if (manager->FindDrawing(type, w(name)))
            s["name"].Fail(QStringLiteral("\"%1\" appears twice in its type").arg(name));
        veld::CDrawing* d = manager->AddDrawing(type, w(name), s["visible"].Bool(),
                                                s["locked"].Bool(), s["hidden"].Bool(), true);
        d->SetFlags(flags(s["flags"]));
        d->SetUseColor(s["useColor"].Bool());
        d->SetColor(static_cast<unsigned>(s["color"].Whole(0, 256)));
        d->SetNoRef(static_cast<unsigned>(s["refs"].Whole(0, 0xFFFF)));
        sets.push_back(d);
    }
    // Adding a set makes it active when its type has none yet, so an empty or
    // partial list would still read: the writer names one set of every type
    // that has sets, and so must a file.
    std::set<unsigned> activeTypes;
    for (qsizetype i = 0; i < active.Size(); ++i) {
        const In a = active.At(i);
        veld::CDrawing* d =
            sets[static_cast<size_t>(a.Whole(0, static_cast<qint64>(sets.size()) - 1))];
        const unsigned type = d->GetDrawingType()->GetID();
        if (!activeTypes.insert(type).second)
            a.Fail(QStringLiteral("a second active entity set of type %1").arg(type));
        manager->SetActiveDrawing(d);
    }
    for (unsigned type : {0u, 1u})
        if (!manager->GetActiveDrawing(type))
            list.Fail(QStringLiteral("the drawing needs an entity set of type %1").arg(type));
    for (unsigned i = 0; i < manager->GetNoDrawingTypes(); ++i) {
        const unsigned type = manager->GetDrawingTypeAtPos(i)->GetID();
        veld::CDrawingList ofType;
        manager->GetAllDrawingsForType(type, ofType);
        if (!ofType.empty() && !activeTypes.count(type))
            active.Fail(QStringLiteral("no active entity set of type %1").arg(type));
    }
    return sets;
}

void readEnts(veld::CData& data, const In& list, const std::vector<veld::CDrawing*>& sets) {
    std::set<qint64> handles;
    for (qsizetype i = 0; i < list.Size(); ++i) {
        const In e = list.At(i);
        const qint64 handle = e["handle"].Whole(1, 0x7FFFFFFF);
        if (!handles.insert(handle).second)
            e["handle"].Fail(QStringLiteral("handle %1 appears twice").arg(handle));
        veld::EntKind kind;
        const QString kindName = e["kind"].Text();
        if (!veld::CEnt::KindFromName(w(kindName), kind))
            e["kind"].Fail(QStringLiteral("no entity kind \"%1\"").arg(kindName));
        veld::CDrawing* set =
            sets[static_cast<size_t>(e["set"].Whole(0, static_cast<qint64>(sets.size()) - 1))];
        ulo::RefPtr<veld::CEnt> ent = ulo::RefPtr<veld::CEnt>::Adopt(
            veld::CreateEnt(kind, findLayer(data, e["layer"]), findLtype(data, e["ltype"]),
                            static_cast<short>(e["color"].Whole(0, 256)), set));
        ent->SetHandle(static_cast<unsigned long>(handle));
        const In userIn = e["user"];
        const auto userId = static_cast<unsigned>(userIn.Whole(0, 0xFFFFFFFF));
        const veld::CVeldUserType* user = veld::CVeldUserType::Find(userId);
        if (!user)
            userIn.Fail(QStringLiteral("no user type %1").arg(userId));
        ent->SetUserType(user);
        const In pts = e["points"];
        std::vector<ulo::geom::PNT_3D> points;
        for (qsizetype j = 0; j < pts.Size(); ++j)
            points.push_back(pts.At(j).Point());
        const size_t need = kind == veld::EntKind::Line       ? 2
                            : kind == veld::EntKind::Polyline ? 2
                                                              : 1;
        if (points.size() < need || (kind != veld::EntKind::Polyline && points.size() != need))
            pts.Fail(QStringLiteral("a %1 has %2 point%3")
                         .arg(kindName.toLower())
                         .arg(need)
                         .arg(need == 1                         ? ""
                              : kind == veld::EntKind::Polyline ? "s or more"
                                                                : "s"));
        ent->SetPoints(std::move(points));
        if (kind == veld::EntKind::Circle)
            ent->SetRadius(e["radius"].Number(veld::stored::kLength));
        if (kind == veld::EntKind::Polyline)
            ent->SetClosed(e["closed"].Bool());
        if (kind == veld::EntKind::Text) {
            const In t = e["text"];
            auto* text = static_cast<veld::CEntText*>(ent.get());
            text->SetText(veld::TEXT_3D(w(t["string"].Text()), findStyle(data, t["style"]),
                                        t["height"].Number(veld::stored::kLength),
                                        t["slant"].Number(veld::stored::kTextAngle),
                                        t["width"].Number(veld::stored::kWidthFactor),
                                        t["rotation"].Number(veld::stored::kTextAngle),
                                        ent->GetPoints().front(),
                                        static_cast<unsigned short>(t["align"].Whole(0, 11)), 0));
        }
        data.GetEntTable().Add(ent.get());
        data.ReserveHandle(static_cast<unsigned long>(handle));
    }
}

void readSettings(Parsed& p, const In& s) {
    CVELD::Settings& out = p.settings;
    out.ltypeScale = s["ltypeScale"].Number(veld::stored::kLtypeScale);
    const qint64 system = s["angleSystem"].Whole(0, 3);
    if (system == 1)
        s["angleSystem"].Fail("expected 0 (degrees), 2 (gons) or 3 (radians)");
    out.angleSystem = static_cast<short>(system);
    out.angleBase = s["angleBase"].Number(veld::stored::kAngleBase);
    out.angleClockwise = s["angleClockwise"].Bool();
    out.crossDim = static_cast<long>(s["crossDim"].Whole(0, 10000));
    out.deltaPick = static_cast<long>(s["deltaPick"].Whole(0, 10000));
    p.osnapOn = s["osnapOn"].Bool();
    p.osnapMask = static_cast<unsigned>(s["osnapMask"].Whole(0, 0xFFFFFFFF));
    const In c = s["colors"];
    out.background = c["background"].Colour();
    out.grid = c["grid"].Colour();
    out.selected = c["selected"].Colour();
    out.crossHair = c["crossHair"].Colour();
}

void readCurrent(Parsed& p, const In& c) {
    veld::CData& data = *p.data;
    p.curLayer = findLayer(data, c["layer"]);
    if (!p.curLayer->CanBeCurrent())
        c["layer"].Fail(
            QStringLiteral("the layer \"%1\" cannot be current").arg(c["layer"].Text()));
    p.curLtype = findLtype(data, c["ltype"]);
    if (!p.curLtype->CanBeCurrent())
        c["ltype"].Fail(
            QStringLiteral("the line type \"%1\" cannot be current").arg(c["ltype"].Text()));
    p.curStyle = findStyle(data, c["style"]);
}

/// @p have: the views of the CAD instance read into; each view of the file
/// goes to one of them, and a view with nowhere to go would be lost.
void readViews(Parsed& p, const In& list, int have) {
    if (list.Size() > have)
        list.At(have).Fail(
            have == 0
                ? QStringLiteral("the drawing has no views")
                : QStringLiteral("the drawing has %1 view%2").arg(have).arg(have == 1 ? "" : "s"));
    for (qsizetype i = 0; i < list.Size(); ++i) {
        const In v = list.At(i);
        const In g = v["grid"];
        Parsed::View view;
        view.preset = static_cast<int>(v["preset"].Whole(1, 10));
        // A view's grid keeps any number its dialog took: the snap angle as
        // typed, in the host's unit.
        constexpr veld::StoredRange any = veld::stored::kFinite;
        view.grid.SetSnap(g["snapOn"].Bool(), g["baseEast"].Number(any), g["baseNorth"].Number(any),
                          g["snapEast"].Number(any), g["snapNorth"].Number(any),
                          g["snapAngle"].Number(any));
        const bool on = g["gridOn"].Bool();
        if (g["gridBySnap"].Bool()) {
            view.grid.SetGridBySnap();
            if (!on)
                view.grid.SetGrid(false, 0.0, 0.0);
        } else {
            view.grid.SetGrid(on, g["gridEast"].Number(any), g["gridNorth"].Number(any));
        }
        p.views.push_back(view);
    }
}

void readImages(Parsed& p, const In& list) {
    for (qsizetype i = 0; i < list.Size(); ++i) {
        const In im = list.At(i);
        const QString name = im["name"].Name();
        QImage image;
        const In pngIn = im["png"];
        if (!pngIn.IsNull()) {
            const QString text = pngIn.Text();
            if (text.isEmpty())
                pngIn.Fail("the picture is empty (an image without one has null)");
            const auto png = QByteArray::fromBase64Encoding(
                text.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
            if (!png)
                pngIn.Fail("the picture is not base64");
            if (!image.loadFromData(*png, "PNG"))
                pngIn.Fail("the picture is not a readable PNG");
        }
        p.images.push_back(
            std::make_unique<CVELDImage>(name, std::make_shared<pix::CDibImage>(image),
                                         im["scale"].Number(veld::stored::kImageScale),
                                         im["xMin"].Number(veld::stored::kCoordinate),
                                         im["yMin"].Number(veld::stored::kCoordinate)));
    }
}

}  // namespace

QByteArray Write(const CVELD& cad) {
    return QJsonDocument(writeObject(cad)).toJson(QJsonDocument::Indented);
}

QByteArray Dump(const CVELD& cad) {
    QJsonObject o = writeObject(cad);
    QJsonArray selection;
    const veld::CEntCollection& sel = GetSelectedEntCollection(&cad);
    for (unsigned i = 0; i < sel.GetNoEnts(); ++i)
        selection.append(static_cast<qint64>(sel.GetEnt(i)->GetHandle()));
    CVELD& mutableCad = const_cast<CVELD&>(cad);
    const CMouseCursorInfo& c = CSystemVars::GetInstance().GetMouseCursorInfo();
    o["session"] =
        QJsonObject{{"selection", selection},
                    {"undo", static_cast<qint64>(mutableCad.GetUndoList().GetDoneCount())},
                    {"redo", static_cast<qint64>(mutableCad.GetUndoList().GetCount() -
                                                 mutableCad.GetUndoList().GetDoneCount())},
                    {"colorSelected", DoColorSelectedEnts()},
                    {"cursor", QJsonObject{{"format", static_cast<qint64>(c.GetCursorFormat())},
                                           {"color", colourText(c.GetCursorColor())},
                                           {"alternate", colourText(c.GetCursorAlterColor())},
                                           {"size", c.GetCursorSize()},
                                           {"searchSize", c.GetCursorSearchSize()},
                                           {"aperture", c.GetCursorAperture()},
                                           {"penWeight", c.GetCursorPenWeight()},
                                           {"allScreen", c.IsCursorAllScreen()}}}};
    return QJsonDocument(o).toJson(QJsonDocument::Indented);
}

bool Read(CVELD& cad, const QByteArray& json, QString& error) {
    QString fault;
    qsizetype at = 0;
    if (!jsonscan::Check(std::string_view(json.constData(), static_cast<size_t>(json.size())),
                         fault, at)) {
        error = QStringLiteral("not a drawing file: %1 at byte %2").arg(fault).arg(at);
        return false;
    }
    Parsed p;
    try {
        const In root(jsonscan::Blanks(json.constData()));
        if (!root.IsObject())
            root.Fail("expected an object");
        if (root["format"].Text() != QLatin1String(kFormat))
            root["format"].Fail(QStringLiteral("expected \"%1\"").arg(kFormat));
        if (root["version"].Whole(1, 1000) != kVersion)
            root["version"].Fail(QStringLiteral("this program reads version %1").arg(kVersion));
        readStyles(*p.data, root["styles"]);
        readLtypes(*p.data, root["ltypes"]);
        readLayers(*p.data, root["layers"]);
        const auto sets = readSets(*p.data, root["sets"], root["active"]);
        readEnts(*p.data, root["entities"], sets);
        readSettings(p, root["settings"]);
        readCurrent(p, root["current"]);
        readViews(p, root["views"], cad.GetNoViews());
        readImages(p, root["images"]);
    } catch (const Refusal& r) {
        error = r.where.isEmpty() ? r.what : r.where + QStringLiteral(": ") + r.what;
        return false;
    }

    // Everything checked: the CAD instance takes the new drawing.
    cad.SetData(std::move(p.data));
    // The values of the settings; the current items are held by the CAD instance.
    CVELD::Settings& s = cad.GetSettings();
    p.settings.curLayer = s.curLayer;
    p.settings.curLtype = s.curLtype;
    p.settings.curStyle = s.curStyle;
    s = p.settings;
    cad.SetCurrentItems(p.curLayer, p.curLtype, p.curStyle);
    cad.UpdateAngleConverter();
    cad.SetOSnapper(p.osnapOn, p.osnapMask);
    for (int i = 0; i < cad.GetNoViews() && i < static_cast<int>(p.views.size()); ++i) {
        cad.GetViewState(i)->GetGrid() = p.views[static_cast<size_t>(i)].grid;
        cad.GetViewState(i)->SetPresetView(p.views[static_cast<size_t>(i)].preset);
    }
    while (cad.GetNoImages() > 0)
        cad.RemoveImage(cad.GetImage(0));
    for (auto& image : p.images)
        cad.AddImage(std::move(image));
    cad.NotifyChange(CVELD::Change::Redraw);
    return true;
}

namespace {

/// Opens @p path for reading when it names a regular file (after links) of
/// at most kMaxFileBytes; false with @p why set otherwise.
bool openRegular(const QString& path, QFile& file, QString& why) {
    ulo::OpenFailure failure = ulo::OpenFailure::None;
    const int fd = ulo::OpenRegularFile(path, kMaxFileBytes, failure);
    switch (failure) {
        case ulo::OpenFailure::None:
            break;
        case ulo::OpenFailure::CannotOpen:
            why = QString::fromLocal8Bit(std::strerror(errno));
            return false;
        case ulo::OpenFailure::IsFolder:
            why = QStringLiteral("it is a folder");
            return false;
        case ulo::OpenFailure::NotRegularFile:
            why = QStringLiteral("it is not a regular file");
            return false;
        case ulo::OpenFailure::TooLarge:
            why = QStringLiteral("it is larger than %1 bytes").arg(kMaxFileBytes);
            return false;
    }
    if (!file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        why = file.errorString();
        return false;
    }
    return true;
}

}  // namespace

static bool loadFile(CVELD& cad, const QString& path, veld::IFileReaderPasswordRequest* request,
                     QString& error) {
    const QString name = QFileInfo(path).fileName();
    QFile file;
    QString why;
    if (!openRegular(path, file, why)) {
        error = QStringLiteral("%1 cannot be opened: %2").arg(name, why);
        return false;
    }
    // One byte past the limit tells a file that grew since it was opened.
    const QByteArray bytes = file.read(kMaxFileBytes + 1);
    if (file.error() != QFileDevice::NoError) {
        error = QStringLiteral("%1 cannot be read: %2").arg(name, file.errorString());
        return false;
    }
    if (bytes.size() > kMaxFileBytes) {
        error = QStringLiteral("%1 cannot be opened: it is larger than %2 bytes")
                    .arg(name)
                    .arg(kMaxFileBytes);
        return false;
    }
    QByteArray plain;
    switch (veld::CSealedFile::Read(bytes, request, w(name), plain)) {
        case veld::CSealedFile::Result::Plain:
        case veld::CSealedFile::Result::Opened:
            break;
        case veld::CSealedFile::Result::Cancelled:
            error = QStringLiteral("%1 was not opened: no password was given").arg(name);
            return false;
        case veld::CSealedFile::Result::WrongPassword:
            // Past the header a changed byte fails like a wrong password does.
            error = QStringLiteral("%1 was not opened: wrong password or damaged file").arg(name);
            return false;
        case veld::CSealedFile::Result::Damaged:
            error = QStringLiteral("%1 is damaged: its sealed content does not open").arg(name);
            return false;
    }
    if (!Read(cad, plain, why)) {
        error = QStringLiteral("%1: %2").arg(name, why);
        return false;
    }
    return true;
}

bool Load(CVELD& cad, const QString& path, veld::IFileReaderPasswordRequest* request,
          QString& error) {
    try {
        return loadFile(cad, path, request, error);
    } catch (const std::bad_alloc&) {
        // Everything is read aside before the drawing changes: it stays.
        error = QStringLiteral("%1 cannot be opened: not enough memory")
                    .arg(QFileInfo(path).fileName());
        return false;
    }
}

bool Save(const CVELD& cad, const QString& path, const QString& password, QString& error) {
    const QByteArray json = Write(cad);
    const QByteArray bytes = password.isEmpty() ? json : veld::CSealedFile::Seal(json, w(password));
    // A device, a FIFO or a folder is never replaced by a drawing.
    const QFileInfo target(path);
    if (target.exists() && !target.isFile()) {
        error =
            QStringLiteral("%1 cannot be saved: it is not a regular file").arg(target.fileName());
        return false;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        error = QStringLiteral("%1 cannot be saved: %2")
                    .arg(QFileInfo(path).fileName(), file.errorString());
        return false;
    }
    return true;
}

}  // namespace drawingfile
