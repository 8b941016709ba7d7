#include "LtypeLoader.h"

#include <sys/stat.h>

#include <QFile>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ulo/NumberText.h"
#include "ulo/RefCounter.h"
#include "veld/IFile.h"
#include "veld/ObjectFactory.h"
#include "veld/Tables.h"

namespace veld {

/// One rejected definition while loading: its name and error code (1..7).
/// Raised while a definition is parsed, caught by Load itself.
class CLtypeLoaderLoadError {
public:
    CLtypeLoaderLoadError(ulo::WString name, int code) : name_(std::move(name)), code_(code) {}
    const ulo::WString& GetName() const { return name_; }
    int GetCode() const { return code_; }

private:
    ulo::WString name_;
    int code_;
};

namespace {

constexpr double kDegToRad = 0.01745329251994;
constexpr std::size_t kFormatBuffer = 1024;
// Files are read in blocks of kBlock bytes and written in blocks of at least
// kWriteBlock bytes.
constexpr std::size_t kBlock = 64 << 10;
constexpr std::size_t kWriteBlock = 1 << 20;

/// ISO-8859-1 bytes as wide text: every byte is one character.
std::wstring widen(std::string_view bytes) {
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
    return std::wstring(p, p + bytes.size());
}

/// Reads a ".lin" file block by block and hands out its lines: pieces of at
/// most 4095 bytes, comment (";;") and blank lines skipped, every piece
/// counted. A line lasts until the next one is read.
class CLtypeLineReader {
public:
    explicit CLtypeLineReader(std::FILE* file)
        : file_(file), block_(std::make_unique_for_overwrite<char[]>(kBlock)) {}
    std::string_view Next() {
        for (;;) {
            std::string_view piece = ReadPiece();
            ++count_;
            if (piece.starts_with(";;"))
                continue;
            while (!piece.empty() && (piece.back() == '\n' || piece.back() == '\r' ||
                                      piece.back() == ' ' || piece.back() == '\t'))
                piece.remove_suffix(1);
            if (!piece.empty())
                return piece;
        }
    }
    unsigned GetLineNo() const { return count_; }

private:
    std::string_view ReadPiece() {
        for (;;) {
            const char* from = block_.get() + begin_;
            const std::size_t span = std::min(end_ - begin_, kMax);
            if (const void* nl = std::memchr(from, '\n', span))
                return Take(static_cast<std::size_t>(static_cast<const char*>(nl) + 1 - from));
            if (span == kMax || eof_) {
                if (span == 0)
                    throw IFile::IFileEOF();
                return Take(span);
            }
            Refill();
        }
    }
    std::string_view Take(std::size_t n) {
        const std::string_view piece(block_.get() + begin_, n);
        begin_ += n;
        return piece;
    }
    void Refill() {
        end_ -= begin_;
        std::memmove(block_.get(), block_.get() + begin_, end_);
        begin_ = 0;
        end_ += std::fread(block_.get() + end_, 1, kBlock - end_, file_);
        if (std::ferror(file_))
            throw IFile::IFileIOError();
        eof_ = std::feof(file_) != 0;
    }
    static constexpr std::size_t kMax = 4095;
    std::FILE* file_;
    std::unique_ptr<char[]> block_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    bool eof_ = false;
    unsigned count_ = 0;
};

/// Splits a text at commas; the cursor is gone (npos) once the text is used
/// up. Fields are views into the text.
class CLtypeTokenizer {
public:
    explicit CLtypeTokenizer(std::string_view text)
        : text_(text), cursor_(text_.empty() ? std::string_view::npos : 0) {}
    bool Next(std::string_view& field) {
        if (cursor_ == std::string_view::npos)
            return false;
        const std::size_t end = text_.find(',', cursor_);
        if (end == std::string_view::npos) {
            field = text_.substr(cursor_);
            cursor_ = std::string_view::npos;
        } else {
            field = text_.substr(cursor_, end - cursor_);
            cursor_ = end + 1;
        }
        return true;
    }
    void Skip(std::size_t n) {
        if (cursor_ == std::string_view::npos)
            return;
        cursor_ = std::min(cursor_ + n, text_.size());
        if (cursor_ >= text_.size())
            cursor_ = std::string_view::npos;
    }
    std::size_t Cursor() const { return cursor_; }
    std::string_view Text() const { return text_; }

private:
    std::string_view text_;
    std::size_t cursor_;
};

/// The number a field starts with (0 when none), read in full whatever its
/// length, as ulo::ScanNumber reads it. Most are plain decimals of at most 15
/// digits ("-12.25"): their digits over a power of ten, both exact, so the
/// quotient is rounded once, as ScanNumber's from_chars rounds it. The others
/// take ScanNumber's way. A number beyond the range of a double makes the
/// definition invalid: no infinity enters a drawing.
template <class Fail>
double fieldNumber(std::string_view field, const Fail& fail) {
    static constexpr double kPow10[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool negative = field.starts_with('-');
    std::size_t i = negative ? 1 : 0;
    std::uint64_t digits = 0;
    int count = 0, decimals = 0;
    bool point = false;
    for (; i < field.size(); ++i) {
        const char c = field[i];
        if (c >= '0' && c <= '9') {
            digits = digits * 10 + static_cast<unsigned>(c - '0');
            ++count;
            decimals += point;
        } else if (c == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    if (count > 0 && count <= 15 && (i == field.size() || (field[i] != 'e' && field[i] != 'E'))) {
        const double v = static_cast<double>(digits) / kPow10[decimals];
        return negative ? -v : v;
    }
    const ulo::NumberScan scan = ulo::ScanNumber(widen(field));
    if (scan.outOfRange)
        fail(2);
    return scan.value;
}

/// The elements a pattern line holds: its fields after "A", a bracketed text
/// record counting as one.
unsigned elementCount(std::string_view line) {
    unsigned n = 0;
    bool inText = false;
    for (const char c : line) {
        if (c == '[')
            inText = true;
        else if (c == ']')
            inText = false;
        else if (c == ',' && !inText)
            ++n;
    }
    return n;
}

struct FileCloser {
    void operator()(std::FILE* f) const {
        if (f)
            std::fclose(f);
    }
};
using FilePtr = std::unique_ptr<std::FILE, FileCloser>;

std::FILE* openFile(const wchar_t* path, const char* mode) {
    if (!path)
        return nullptr;
    const QByteArray local = QFile::encodeName(QString::fromWCharArray(path));
    struct stat st {};
    if (mode[0] == 'r' && (::stat(local.constData(), &st) != 0 || S_ISDIR(st.st_mode)))
        return nullptr;
    std::FILE* f = std::fopen(local.constData(), mode);
    if (f)
        std::setvbuf(f, nullptr, _IONBF, 0);  // the loader reads and writes whole blocks itself
    return f;
}

/// "00" to "99".
constexpr auto kDigitPairs = [] {
    std::array<char, 200> pairs{};
    for (int i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

/// Gathers the saved lines as 8-bit text and writes them a block at a time.
/// A line holding a character above 255 is not written.
class CLtypeLineWriter {
public:
    explicit CLtypeLineWriter(std::FILE* file)
        : file_(file),
          buf_(std::make_unique_for_overwrite<char[]>(kWriteBlock + kBlock)),
          room_(kWriteBlock + kBlock) {}
    std::size_t Size() const { return size_; }
    void Put(std::string_view s) {
        std::memcpy(Room(s.size()), s.data(), s.size());
        size_ += s.size();
    }
    void Put(const std::wstring& s) {
        char* const p = Room(s.size());
        wchar_t all = 0;  // every character's bits: above 255 when one is
        for (std::size_t i = 0; i < s.size(); ++i) {
            all |= s[i];
            p[i] = static_cast<char>(s[i]);
        }
        const auto above = [](wchar_t c) { return static_cast<unsigned long>(c) > 255; };
        if (above(all) && bad_ == kNone)
            bad_ = size_ +
                   static_cast<std::size_t>(std::find_if(s.begin(), s.end(), above) - s.begin());
        size_ += s.size();
    }
    /// A pattern element's value: six decimals, trailing zeros dropped, as
    /// ulo::WString::ValueOf(v, 6) writes it.
    void PutElement(double v) { PutFixed(v, true); }
    /// A text element's value: six decimals as "%f" writes them, but
    /// magnitudes where six decimals add nothing in their shortest exact form
    /// ("1e+55"), so every value reads back the same and four of them stay far
    /// below the element's 1024 characters.
    void PutTextValue(double v) {
        if (std::fabs(v) >= 1e15)
            Put(ulo::ExactText(v));
        else
            PutFixed(v, false);
    }
    /// Cuts what was put from @p from on to the formatting buffer (1023
    /// characters).
    void Limit(std::size_t from) {
        size_ = std::min(size_, from + kFormatBuffer - 1);
        if (bad_ >= size_)
            bad_ = kNone;
    }
    /// Ends the line. False when it cannot be written (it is dropped) or a
    /// block write failed: nothing more is to be written then.
    bool EndLine() {
        if (bad_ != kNone) {
            size_ = line_;
            return false;
        }
        Put("\r\n");
        line_ = size_;
        return line_ < kWriteBlock || Flush();
    }
    /// Writes the ended lines; false when the write fails.
    bool Flush() {
        const bool ok = std::fwrite(buf_.get(), 1, line_, file_) == line_;
        size_ = line_ = 0;
        return ok;
    }

private:
    static constexpr std::size_t kNone = std::string::npos;

    /// Where @p n more characters go.
    char* Room(std::size_t n) {
        if (size_ + n > room_) {
            room_ = std::max(2 * room_, size_ + n);
            auto grown = std::make_unique_for_overwrite<char[]>(room_);
            std::memcpy(grown.get(), buf_.get(), size_);
            buf_ = std::move(grown);
        }
        return buf_.get() + size_;
    }

    /// @p v as ulo::CStringDaDouble(v, 0, 6) writes it, or trimmed as
    /// ulo::WString::ValueOf(v, 6). Below 2^32, m = v * 10^6 rounded is
    /// within a quarter of the exact product: a whole m is v's six-decimal
    /// rounding in millionths, written with integer digits. Most values are
    /// such; the others take the toolkit's way.
    void PutFixed(double v, bool trim) {
        const double m = v * 1e6;
        if (!(std::fabs(v) < 0x1p32 && m == std::trunc(m))) {
            Put(trim ? ulo::WString::ValueOf(v, 6).str() : ulo::CStringDaDouble(v, 0, 6).str());
            return;
        }
        const auto u = static_cast<std::uint64_t>(std::fabs(m));
        char* const start = Room(32);
        char* p = start;
        if (v < 0)
            *p++ = '-';  // not for -0: a zero has no sign
        p = std::to_chars(p, start + 32, u / 1000000).ptr;
        const auto f = static_cast<unsigned>(u % 1000000);
        if (!trim || f != 0) {
            *p = '.';
            std::memcpy(p + 1, &kDigitPairs[2 * (f / 10000)], 2);
            std::memcpy(p + 3, &kDigitPairs[2 * (f / 100 % 100)], 2);
            std::memcpy(p + 5, &kDigitPairs[2 * (f % 100)], 2);
            p += 7;
            while (trim && p[-1] == '0')
                --p;
        }
        size_ += static_cast<std::size_t>(p - start);
    }

    std::FILE* file_;
    std::unique_ptr<char[]> buf_;
    std::size_t room_;
    std::size_t size_ = 0;
    std::size_t line_ = 0;     // where the line being put starts
    std::size_t bad_ = kNone;  // its first character above 255
};

/// Puts @p ltype's two lines; false when nothing more is to be written.
bool writeLtype(CLtypeLineWriter& out, const CLtype& ltype) {
    const std::size_t line = out.Size();
    out.Put("*");
    out.Put(ltype.GetName().str());
    out.Put(",");
    out.Put(ltype.GetDesc().str());
    out.Limit(line);
    if (!out.EndLine())
        return false;
    out.Put("A");
    for (unsigned k = 0; k < ltype.GetNoDashes(); ++k) {
        const ILtypeComplexDash* dash = ltype.GetDash(k);
        out.Put(",");
        if (dash->IsDouble()) {
            out.PutElement(dash->GetDouble());
            continue;
        }
        const TEXT_3D* t = dash->GetText();
        const std::size_t from = out.Size();
        out.Put("[\"");
        out.Put(t->GetContext().GetString().str());
        out.Put("\",");
        if (const CStyle* style = t->GetStyle())
            out.Put(style->GetName().str());
        out.Put(",S=");
        out.PutTextValue(t->GetContext().GetHeight());
        out.Put(",R=");
        out.PutTextValue(t->GetContext().GetRotate() / kDegToRad);
        out.Put(",X=");
        out.PutTextValue(t->GetPoint().x);
        out.Put(",Y=");
        out.PutTextValue(t->GetPoint().y);
        out.Put("]");
        out.Limit(from);
    }
    return out.EndLine();
}

}  // namespace

struct CLtypeLoader::Private {
    Private(const CStyleTable* s, CObjectFactory* f) : styles(s), factory(f) {}
    const CStyleTable* styles;
    CObjectFactory* factory;
    IErrorNotifier* notifier = nullptr;
    std::vector<ulo::RefPtr<CLtype>> ltypes;
    // The last style found in the table: libraries use one or two styles
    // throughout, so most lookups end here.
    std::string lastStyleName;
    CStyle* lastStyle = nullptr;

    CStyle* FindStyle(std::string_view name);
    CLtypeComplexDashSeq Parse(const ulo::WString& name, std::string_view line);
    int Read(std::FILE* file, const wchar_t* path);
};

CStyle* CLtypeLoader::Private::FindStyle(std::string_view name) {
    if (lastStyle && name == lastStyleName)
        return lastStyle;
    const ulo::WString text(widen(name));
    if (CStyle* style = styles ? styles->Find(text) : nullptr) {
        lastStyleName = name;
        lastStyle = style;
        return style;
    }
    // A name the table lacks is put to the notifier every time.
    return notifier ? notifier->GetUndefinedStyle(text) : nullptr;
}

CLtypeComplexDashSeq CLtypeLoader::Private::Parse(const ulo::WString& name, std::string_view line) {
    const auto fail = [&](int code) { throw CLtypeLoaderLoadError(name, code); };
    CLtypeTokenizer tok(line);
    std::string_view field;
    if (!tok.Next(field) || field != "A")
        fail(1);
    CLtypeComplexDashSeq seq;
    seq.Reserve(elementCount(line));
    while (tok.Next(field)) {
        if (field.empty())
            fail(2);
        if (field[0] != '[') {
            const double v = fieldNumber(field, fail);
            if (seq.GetNoDashes() == 0 && v < 0)
                fail(6);
            seq.AddDashDouble(v);
            continue;
        }
        if (seq.GetNoDashes() == 0)
            fail(7);
        if (field.back() == ']')
            fail(2);
        if (field.size() < 4 || field[1] != '"' || field.back() != '"')
            fail(5);
        const std::size_t from = tok.Cursor();
        const std::size_t close =
            from == std::string_view::npos ? std::string_view::npos : tok.Text().find(']', from);
        if (close == std::string_view::npos)
            fail(2);
        const std::string_view body = tok.Text().substr(from, close - from);
        tok.Skip(body.size() + 2);  // the body, "]" and the separator after it
        CLtypeTokenizer keys(body);
        std::string_view styleName;
        if (!keys.Next(styleName))
            fail(2);
        CStyle* style = FindStyle(styleName);
        if (!style)
            fail(3);
        TEXT_3D text(widen(field.substr(2, field.size() - 3)), style, 1.0, 0.0, 1.0, 0.0,
                     ulo::geom::PNT_3D::Origin, 0, 0);
        std::string_view key;
        while (keys.Next(key)) {
            if (key.size() < 3 || key[1] != '=')
                fail(2);
            const double v = fieldNumber(key.substr(2), fail);
            ulo::geom::PNT_3D p = text.GetPoint();
            switch (key[0]) {
                case 'S':
                case 's':
                    text.GetContext().SetHeight(v);
                    break;
                case 'R':
                case 'r':
                    text.GetContext().SetRotate(v * kDegToRad);
                    break;
                case 'X':
                case 'x':
                    p.x = v, text.SetPoint(p);
                    break;
                case 'Y':
                case 'y':
                    p.y = v, text.SetPoint(p);
                    break;
                default:
                    break;  // other keys are accepted and ignored
            }
        }
        seq.AddDashText(std::move(text));
    }
    if (seq.GetNoDashes() < 2)
        fail(4);
    return seq;
}

int CLtypeLoader::Private::Read(std::FILE* file, const wchar_t* path) {
    CLtypeLineReader reader(file);
    try {
        for (;;) {
            // A line lasts until the next is read: take the header's parts
            // before reading the pattern line.
            std::string_view header = reader.Next();
            while (header[0] != '*')
                header = reader.Next();
            const std::size_t comma = header.find(',');
            ulo::WString name(widen(header.substr(
                1, comma == std::string_view::npos ? std::string_view::npos : comma - 1)));
            ulo::WString desc(comma == std::string_view::npos ? std::wstring()
                                                              : widen(header.substr(comma + 1)));
            const std::string_view pattern = reader.Next();
            try {
                CLtypeComplexDashSeq seq = Parse(name, pattern);
                auto ltype = ulo::RefPtr<CLtype>::Adopt(
                    factory->CreateLtype(std::move(name), std::move(desc), std::move(seq), 0, 0));
                ltypes.push_back(std::move(ltype));
            } catch (const CLtypeLoaderLoadError& e) {
                if (notifier)
                    notifier->NotifyLoadError(path, reader.GetLineNo(), e.GetName(), e.GetCode());
            }
        }
    } catch (const IFile::IFileEOF&) {
        return 0;
    }
}

CLtypeLoader::CLtypeLoader(const CStyleTable* styles, CObjectFactory* factory)
    : d(std::make_unique<Private>(styles, factory)) {}

CLtypeLoader::~CLtypeLoader() = default;

int CLtypeLoader::Load(const wchar_t* path) {
    d->ltypes.clear();
    d->lastStyle = nullptr;  // the table or the notifier may answer otherwise now
    FilePtr file(openFile(path, "rb"));
    const int result = file ? d->Read(file.get(), path) : -1;
    d->ltypes.shrink_to_fit();  // a library is loaded once, then only read
    return result;
}

void CLtypeLoader::Save(const wchar_t* path) {
    FilePtr file(openFile(path, "wb"));
    if (!file)
        return;
    CLtypeLineWriter out(file.get());
    for (const auto& ltype : d->ltypes)
        if (!writeLtype(out, *ltype))
            break;
    out.Flush();  // the lines ended so far; the rest is not written
}

unsigned CLtypeLoader::GetNoLtypes() const {
    return static_cast<unsigned>(d->ltypes.size());
}

const CLtype* CLtypeLoader::GetLtypeNo(unsigned index) {
    return index < d->ltypes.size() ? d->ltypes[index].get() : nullptr;
}

void CLtypeLoader::Add(CLtype* ltype) {
    if (ltype)
        d->ltypes.push_back(ulo::RefPtr<CLtype>::Share(ltype));
}
void CLtypeLoader::Remove(CLtype* ltype) {
    const auto it = std::find_if(d->ltypes.begin(), d->ltypes.end(),
                                 [ltype](const auto& held) { return held.get() == ltype; });
    if (it != d->ltypes.end())
        d->ltypes.erase(it);
}
void CLtypeLoader::SetNotifier(IErrorNotifier* notifier) {
    d->notifier = notifier;
}

}  // namespace veld
