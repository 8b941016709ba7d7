#include "LtypeLoader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ulo/NumberText.h"
#include "ulo/RefCounter.h"
#include "ulo/RegularFile.h"
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
// The line reader takes at most kPiece characters at a time. A saved line of
// up to kPiece characters is therefore read whole: its CR LF, if it does not
// fit the same piece, comes as a piece of its own, which is blank.
constexpr std::size_t kPiece = CLtypeLoader::kMaxLineLength;
// Files are read in blocks of kBlock bytes and written in blocks of at least
// kWriteBlock bytes.
constexpr std::size_t kBlock = 64 << 10;
constexpr std::size_t kWriteBlock = 1 << 20;

/// The file turned out larger than CLtypeLoader::kMaxFileSize while read.
struct TooLarge {};

/// ISO-8859-1 bytes as wide text: every byte is one character.
std::wstring widen(std::string_view bytes) {
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
    return std::wstring(p, p + bytes.size());
}

std::uint64_t bits(double v) {
    return std::bit_cast<std::uint64_t>(v);
}

/// Reads a ".lin" file block by block and hands out its lines: pieces of at
/// most kPiece bytes, comment (";;") and blank lines skipped, every piece
/// counted. A line lasts until the next one is read. Reads no more than
/// CLtypeLoader::kMaxFileSize bytes: a file that goes on raises TooLarge.
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
            const std::size_t span = std::min(end_ - begin_, kPiece);
            if (const void* nl = std::memchr(from, '\n', span))
                return Take(static_cast<std::size_t>(static_cast<const char*>(nl) + 1 - from));
            if (span == kPiece || eof_) {
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
        // One byte beyond the limit is enough to know the file is too large.
        const std::size_t want = static_cast<std::size_t>(
            std::min<unsigned long long>(kBlock - end_, CLtypeLoader::kMaxFileSize + 1 - total_));
        const std::size_t got = std::fread(block_.get() + end_, 1, want, file_);
        if (std::ferror(file_))
            throw IFile::IFileIOError();
        end_ += got;
        total_ += got;
        if (total_ > CLtypeLoader::kMaxFileSize)
            throw TooLarge();
        eof_ = std::feof(file_) != 0;
    }
    std::FILE* file_;
    std::unique_ptr<char[]> block_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    unsigned long long total_ = 0;  // bytes read from the file
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

QByteArray localPath(const wchar_t* path) {
    return QFile::encodeName(QString::fromWCharArray(path));
}

/// Opens a library for reading: a regular file within kMaxFileSize.
FilePtr openLibrary(const wchar_t* path, CLtypeLoader::LoadFailure& failure) {
    using F = CLtypeLoader::LoadFailure;
    failure = F::CannotOpen;
    if (!path)
        return nullptr;
    ulo::OpenFailure why = ulo::OpenFailure::None;
    const int fd = ulo::OpenRegularFile(QString::fromWCharArray(path),
                                        static_cast<qint64>(CLtypeLoader::kMaxFileSize), why);
    if (fd < 0) {
        failure = why == ulo::OpenFailure::TooLarge     ? F::TooLarge
                  : why == ulo::OpenFailure::CannotOpen ? F::CannotOpen
                                                        : F::NotRegularFile;
        return nullptr;
    }
    std::FILE* f = ::fdopen(fd, "rb");
    if (!f) {
        ::close(fd);
        return nullptr;
    }
    std::setvbuf(f, nullptr, _IONBF, 0);  // the loader reads whole blocks itself
    failure = F::None;
    return FilePtr(f);
}

/// Opens a library for writing, emptied, when the path names a regular file
/// or nothing yet. A device or a FIFO is not written to (opening one does not
/// wait for a reader), nor emptied.
std::FILE* openForWriting(const wchar_t* path) {
    if (!path)
        return nullptr;
    const int fd = ::open(localPath(path).constData(),
                          O_WRONLY | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
    if (fd < 0)
        return nullptr;
    struct stat st {};
    const int flags = ::fcntl(fd, F_GETFL);
    std::FILE* f = ::fstat(fd, &st) == 0 && S_ISREG(st.st_mode) && ::ftruncate(fd, 0) == 0 &&
                           flags >= 0 && ::fcntl(fd, F_SETFL, flags & ~O_NONBLOCK) == 0
                       ? ::fdopen(fd, "wb")
                       : nullptr;
    if (!f) {
        ::close(fd);
        return nullptr;
    }
    std::setvbuf(f, nullptr, _IONBF, 0);  // the loader writes whole blocks itself
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

/// The shortest text that reads back as exactly @p v ("-0", "1e-7", "4e-320"),
/// to_chars' shortest digits set as plain digits, a fraction without its
/// leading 0 (".25") or digits with a power of ten ("15e300"), whichever is
/// shortest. Some 25 characters at most. @p v is finite.
std::size_t minimalText(double v, char* out) {
    char sci[40];
    const char* const end =
        std::to_chars(sci, sci + sizeof sci, v, std::chars_format::scientific).ptr;
    const char* p = sci;
    char* o = out;
    if (*p == '-')
        *o++ = *p++;
    char digits[20];
    int n = 0;
    for (; p < end && *p != 'e'; ++p)
        if (*p != '.')
            digits[n++] = *p;
    int exponent = 0;  // v is d.ddd times 10 to this
    std::from_chars(p + 1 + (p[1] == '+'), end, exponent);
    const int m = exponent - (n - 1);  // v is ddd times 10 to this

    char power[8];
    const int powerLength =
        static_cast<int>(std::to_chars(power, power + sizeof power, m).ptr - power);
    const int plainLength = m >= 0 ? n + m : exponent >= 0 ? n + 1 : n - exponent;
    if (m != 0 && 1 + powerLength < plainLength - n) {
        o = std::copy(digits, digits + n, o);
        *o++ = 'e';
        o = std::copy(power, power + powerLength, o);
    } else if (m >= 0) {
        o = std::copy(digits, digits + n, o);
        o = std::fill_n(o, m, '0');
    } else if (exponent >= 0) {
        o = std::copy(digits, digits + exponent + 1, o);
        *o++ = '.';
        o = std::copy(digits + exponent + 1, digits + n, o);
    } else {
        *o++ = '.';
        o = std::fill_n(o, -exponent - 1, '0');
        o = std::copy(digits, digits + n, o);
    }
    return static_cast<std::size_t>(o - out);
}

/// to_chars' shortest text of @p v ("0.1", "1e+55", "-0"), as ulo::ExactText.
std::size_t exactText(double v, char* out) {
    return static_cast<std::size_t>(std::to_chars(out, out + 32, v).ptr - out);
}

/// Whether @p degrees written in a file read back as the rotation @p radians.
bool readsAsRotation(double degrees, double radians) {
    return bits(degrees * kDegToRad) == bits(radians);
}

/// The degrees to write for a rotation of @p radians: the double nearest
/// radians / kDegToRad that reads back as @p radians and has the shortest
/// text by @p length; radians / kDegToRad itself when none does (only a
/// rotation that came from no file can be such). Every rotation read from a
/// file is some degrees times kDegToRad, and those degrees lie within a few
/// steps of the quotient (within some sixty for the subnormal ones).
template <class Length>
double degreesFor(double radians, const Length& length) {
    const double guess = radians / kDegToRad;
    std::optional<double> best;
    std::size_t bestLength = 0;
    const auto consider = [&](double t) {
        if (!readsAsRotation(t, radians))
            return;
        const std::size_t l = length(t);
        if (!best || l < bestLength)
            best = t, bestLength = l;
    };
    consider(guess);
    double down = guess, up = guess;
    for (int i = 0; i < 64; ++i) {
        consider(down = std::nextafter(down, -HUGE_VAL));
        consider(up = std::nextafter(up, HUGE_VAL));
    }
    return best.value_or(guess);
}

/// Gathers the saved lines as 8-bit text and writes them a block at a time.
/// What is put can be taken back up to the last Commit.
class CLtypeLineWriter {
public:
    explicit CLtypeLineWriter(std::FILE* file)
        : file_(file),
          buf_(std::make_unique_for_overwrite<char[]>(kWriteBlock + kBlock)),
          room_(kWriteBlock + kBlock) {}
    std::size_t Size() const { return size_; }
    /// Where the first character above 255 put since the last Commit is, or
    /// npos.
    std::size_t FirstWide() const { return wide_; }
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
        if (above(all) && wide_ == kNone)
            wide_ = size_ +
                    static_cast<std::size_t>(std::find_if(s.begin(), s.end(), above) - s.begin());
        size_ += s.size();
    }
    /// Takes back what was put from @p to on.
    void Rewind(std::size_t to) {
        size_ = to;
        if (wide_ != kNone && wide_ >= to)
            wide_ = kNone;
    }

    /// A pattern element's value as ulo::WString::ValueOf(v, 6) writes it (six
    /// decimals, trailing zeros dropped) when that reads back as v, else its
    /// shortest exact text ("1e-07", "0.30000000000000004", "-0").
    void PutElement(double v) { PutSixOrExact(v, true); }
    /// A text element's value: six decimals as "%f" writes them when they read
    /// back as v, else its shortest exact text.
    void PutTextValue(double v) { PutSixOrExact(v, false); }
    /// A rotation of @p radians in degrees, as PutTextValue writes them.
    void PutRotation(double radians) {
        const double guess = radians / kDegToRad;
        if (std::fabs(guess) < 1e15) {
            const std::size_t from = size_;
            if (readsAsRotation(PutFixed(guess, false), radians))
                return;
            Rewind(from);
        }
        char text[32];
        Put(std::string_view(
            text,
            exactText(degreesFor(radians, [&](double t) { return exactText(t, text); }), text)));
    }
    /// The shortest text that reads back as @p v.
    void PutMinimal(double v) { size_ += minimalText(v, Room(32)); }
    /// A rotation of @p radians in the shortest degrees that read back as it.
    void PutMinimalRotation(double radians) {
        char text[32];
        PutMinimal(degreesFor(radians, [&](double t) { return minimalText(t, text); }));
    }

    /// Ends the line.
    void EndLine() { Put("\r\n"); }
    /// What was put so far is to be written; false when a block write failed.
    bool Commit() {
        line_ = size_;
        return line_ < kWriteBlock || Flush();
    }
    /// Writes what was committed; false when the write fails.
    bool Flush() {
        const bool ok = std::fwrite(buf_.get(), 1, line_, file_) == line_;
        std::memmove(buf_.get(), buf_.get() + line_, size_ - line_);
        size_ -= line_;
        line_ = 0;
        return ok;
    }
    /// Whether nothing committed waits to be written.
    bool Written() const { return line_ == 0; }

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

    void PutSixOrExact(double v, bool trim) {
        if (std::fabs(v) < 1e15) {
            const std::size_t from = size_;
            if (bits(PutFixed(v, trim)) == bits(v))
                return;
            Rewind(from);
        }
        size_ += exactText(v, Room(32));
    }

    /// Puts @p v as ulo::CStringDaDouble(v, 0, 6) writes it, or trimmed as
    /// ulo::WString::ValueOf(v, 6), and returns what that text reads back
    /// as. Below 2^32, m = v * 10^6 rounded is within a quarter of the exact
    /// product: a whole m is v's six-decimal rounding in millionths, written
    /// with integer digits and read back as m / 10^6. Most values are such;
    /// the others take the toolkit's way.
    double PutFixed(double v, bool trim) {
        const double m = v * 1e6;
        if (!(std::fabs(v) < 0x1p32 && m == std::trunc(m))) {
            const ulo::WString text =
                trim ? ulo::WString::ValueOf(v, 6) : ulo::CStringDaDouble(v, 0, 6);
            Put(text.str());
            return ulo::ScanNumber(text.str()).value;
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
        const double back = static_cast<double>(u) / 1e6;
        return v < 0 ? -back : back;
    }

    std::FILE* file_;
    std::unique_ptr<char[]> buf_;
    std::size_t room_;
    std::size_t size_ = 0;
    std::size_t line_ = 0;      // the end of what is committed
    std::size_t wide_ = kNone;  // the first character above 255 not committed
};

bool endsInBlank(const std::wstring& s) {
    return !s.empty() &&
           (s.back() == L' ' || s.back() == L'\t' || s.back() == L'\r' || s.back() == L'\n');
}

/// Whether Load would read @p ltype's lines, as Save writes them and
/// however long they are, as the same line type: the same name,
/// description, elements, values, texts and style names.
bool readsBack(const CLtype& ltype) {
    const std::wstring& name = ltype.GetName().str();
    const std::wstring& desc = ltype.GetDesc().str();
    // The name ends at the first ","; a line end ends the line; the reader
    // drops trailing blanks.
    if (name.find_first_of(L",\n") != std::wstring::npos ||
        desc.find(L'\n') != std::wstring::npos || endsInBlank(desc))
        return false;
    const unsigned n = ltype.GetNoDashes();
    if (n < 2)
        return false;
    for (unsigned k = 0; k < n; ++k) {
        const ILtypeComplexDash* dash = ltype.GetDash(k);
        if (dash->IsDouble()) {
            const double v = dash->GetDouble();
            if (!std::isfinite(v) || (k == 0 && v < 0))
                return false;
            continue;
        }
        if (k == 0)
            return false;
        const TEXT_3D* t = dash->GetText();
        const std::wstring& text = t->GetContext().GetString().str();
        const CStyle* style = t->GetStyle();
        // The text ends at the first ","; the style name at the first "," or
        // "]".
        if (text.empty() || text.find_first_of(L",\n") != std::wstring::npos || !style ||
            style->GetName().IsEmpty() ||
            style->GetName().str().find_first_of(L",]\n") != std::wstring::npos)
            return false;
        const double rotation = t->GetContext().GetRotate();
        if (!std::isfinite(t->GetContext().GetHeight()) || !std::isfinite(rotation) ||
            !std::isfinite(rotation / kDegToRad) || !std::isfinite(t->GetPoint().x) ||
            !std::isfinite(t->GetPoint().y))
            return false;
    }
    return true;
}

/// Puts the pattern line of @p ltype (without its line end). In full, each
/// text element holds its four values; compact, it holds only those a text
/// element read without them would not have, and every number is in its
/// shortest text.
void putPattern(CLtypeLineWriter& out, const CLtype& ltype, bool compact) {
    out.Put("A");
    for (unsigned k = 0; k < ltype.GetNoDashes(); ++k) {
        const ILtypeComplexDash* dash = ltype.GetDash(k);
        out.Put(",");
        if (dash->IsDouble()) {
            if (compact)
                out.PutMinimal(dash->GetDouble());
            else
                out.PutElement(dash->GetDouble());
            continue;
        }
        const TEXT_3D* t = dash->GetText();
        out.Put("[\"");
        out.Put(t->GetContext().GetString().str());
        out.Put("\",");
        out.Put(t->GetStyle()->GetName().str());
        const double height = t->GetContext().GetHeight();
        const double rotation = t->GetContext().GetRotate();
        const ulo::geom::PNT_3D& p = t->GetPoint();
        if (!compact) {
            out.Put(",S=");
            out.PutTextValue(height);
            out.Put(",R=");
            out.PutRotation(rotation);
            out.Put(",X=");
            out.PutTextValue(p.x);
            out.Put(",Y=");
            out.PutTextValue(p.y);
        } else {
            // A text element read without keys has height 1, rotation 0 and
            // the point (0, 0).
            const auto key = [&](const char* prefix, double v, double unset) {
                if (bits(v) == bits(unset))
                    return false;
                out.Put(prefix);
                return true;
            };
            if (key(",S=", height, 1.0))
                out.PutMinimal(height);
            if (key(",R=", rotation, 0.0))
                out.PutMinimalRotation(rotation);
            if (key(",X=", p.x, 0.0))
                out.PutMinimal(p.x);
            if (key(",Y=", p.y, 0.0))
                out.PutMinimal(p.y);
        }
        out.Put("]");
    }
}

enum class Put { Done, TooLong, Wide };

/// Puts @p ltype's two lines, readsBack(ltype) given: the pattern line in
/// full, or compact when in full it would not fit a piece; the header
/// without its "," when the description is empty and the "," would not fit
/// (it reads the same). A definition whose lines do not fit even so is taken
/// back (TooLong). At a character above 255 the file ends: a header line
/// before it stays, as a line written before a failing one does.
Put putLtype(CLtypeLineWriter& out, const CLtype& ltype) {
    const std::size_t start = out.Size();
    const std::wstring& name = ltype.GetName().str();
    const std::wstring& desc = ltype.GetDesc().str();
    const bool comma = desc.size() + name.size() + 2 <= kPiece;
    if (!comma && !(desc.empty() && name.size() + 1 <= kPiece && !endsInBlank(name)))
        return Put::TooLong;
    out.Put("*");
    out.Put(name);
    if (comma) {
        out.Put(",");
        out.Put(desc);
    }
    out.EndLine();
    const std::size_t pattern = out.Size();
    putPattern(out, ltype, false);
    if (out.Size() - pattern > kPiece) {
        out.Rewind(pattern);
        putPattern(out, ltype, true);
        if (out.Size() - pattern > kPiece) {
            out.Rewind(start);
            return Put::TooLong;
        }
    }
    out.EndLine();
    if (const std::size_t wide = out.FirstWide(); wide != std::string::npos) {
        out.Rewind(wide < pattern ? start : pattern);
        return Put::Wide;
    }
    return Put::Done;
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
    LoadFailure loadFailure = LoadFailure::None;
    // The line types the last Save did not write; they are held here too,
    // so that a Remove after the Save leaves nothing dangling.
    std::vector<std::pair<ulo::RefPtr<CLtype>, SaveRefusal>> unsaved;

    CStyle* FindStyle(std::string_view name);
    CLtypeComplexDashSeq Parse(const ulo::WString& name, std::string_view line);
    int Read(std::FILE* file, const wchar_t* path);
    void Write(std::FILE* file);
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

void CLtypeLoader::Private::Write(std::FILE* file) {
    // What became of each held line type: written when it has no refusal.
    std::vector<std::optional<SaveRefusal>> refusal(ltypes.size());
    const auto notWritten = [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i)
            if (!refusal[i])
                refusal[i] = SaveRefusal::NotWritten;
    };
    if (!file) {
        notWritten(0, ltypes.size());
    } else {
        CLtypeLineWriter out(file);
        std::size_t waiting = 0;  // the first line type whose lines wait in the buffer
        std::size_t i = 0;
        bool ok = true;
        for (; ok && i < ltypes.size(); ++i) {
            if (!readsBack(*ltypes[i])) {
                refusal[i] = SaveRefusal::NotReadable;
                continue;
            }
            const Put put = putLtype(out, *ltypes[i]);
            if (put == Put::TooLong) {
                refusal[i] = SaveRefusal::LineTooLong;
                continue;
            }
            if (put == Put::Wide)
                refusal[i] = SaveRefusal::NoEightBitForm, ok = false;
            if (!out.Commit()) {
                notWritten(waiting, i + 1);
                ok = false;
            } else if (out.Written()) {
                waiting = i + 1;
            }
        }
        if (!out.Flush())
            notWritten(waiting, i);
        notWritten(i, ltypes.size());
    }
    for (std::size_t i = 0; i < ltypes.size(); ++i)
        if (refusal[i])
            unsaved.emplace_back(ltypes[i], *refusal[i]);
}

CLtypeLoader::CLtypeLoader(const CStyleTable* styles, CObjectFactory* factory)
    : d(std::make_unique<Private>(styles, factory)) {}

CLtypeLoader::~CLtypeLoader() = default;

int CLtypeLoader::Load(const wchar_t* path) {
    d->ltypes.clear();
    d->unsaved.clear();
    d->lastStyle = nullptr;  // the table or the notifier may answer otherwise now
    FilePtr file = openLibrary(path, d->loadFailure);
    if (!file)
        return -1;
    int result = 0;
    try {
        result = d->Read(file.get(), path);
    } catch (const TooLarge&) {
        // Grown past the limit while read: as if it had been that large when
        // opened.
        d->ltypes.clear();
        d->loadFailure = LoadFailure::TooLarge;
        result = -1;
    } catch (const IFile::IFileIOError&) {
        d->loadFailure = LoadFailure::ReadError;
        throw;
    }
    d->ltypes.shrink_to_fit();  // a library is loaded once, then only read
    return result;
}

void CLtypeLoader::Save(const wchar_t* path) {
    d->unsaved.clear();
    const FilePtr file(openForWriting(path));
    d->Write(file.get());
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

CLtypeLoader::LoadFailure CLtypeLoader::GetLoadFailure() const {
    return d->loadFailure;
}

unsigned CLtypeLoader::GetNoUnsaved() const {
    return static_cast<unsigned>(d->unsaved.size());
}

CLtypeLoader::Unsaved CLtypeLoader::GetUnsavedNo(unsigned index) const {
    if (index >= d->unsaved.size())
        return {nullptr, SaveRefusal::NotWritten};
    return {d->unsaved[index].first.get(), d->unsaved[index].second};
}

}  // namespace veld
