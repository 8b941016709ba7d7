#include "LtypeLoader.h"

#include <sys/stat.h>

#include <QFile>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cwchar>
#include <cwctype>
#include <string>
#include <string_view>

#include "ulo/NumberText.h"
#include "veld/HandleObjectVectorCollection.h"
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

/// Reads a ".lin" file line by line: pieces of at most 4095 characters,
/// comment (";;") and blank lines skipped, every piece counted.
class CLtypeLineReader {
public:
    explicit CLtypeLineReader(std::FILE* file) : file_(file) {}
    const std::wstring& Next() {
        for (;;) {
            ReadPiece();
            ++count_;
            if (buffer_.size() >= 2 && buffer_[0] == L';' && buffer_[1] == L';')
                continue;
            while (!buffer_.empty() && (buffer_.back() == L'\n' || buffer_.back() == L'\r' ||
                                        buffer_.back() == L' ' || buffer_.back() == L'\t'))
                buffer_.pop_back();
            if (!buffer_.empty())
                return buffer_;
        }
    }
    unsigned GetLineNo() const { return count_; }

private:
    void ReadPiece() {
        buffer_.clear();
        while (buffer_.size() < kMax) {
            const int c = std::fgetc(file_);
            if (c == EOF)
                break;
            buffer_ += static_cast<wchar_t>(static_cast<unsigned char>(c));  // ISO-8859-1
            if (c == '\n')
                break;
        }
        if (std::ferror(file_))
            throw IFile::IFileIOError();
        if (buffer_.empty())
            throw IFile::IFileEOF();
    }
    static constexpr std::size_t kMax = 4095;
    std::FILE* file_;
    std::wstring buffer_;
    unsigned count_ = 0;
};

/// Splits a text at delimiter characters; the cursor is gone (npos) once the
/// text is used up. Fields are views into the text.
class CLtypeTokenizer {
public:
    CLtypeTokenizer(std::wstring_view text, std::wstring_view delimiters)
        : text_(text), delims_(delimiters), cursor_(text_.empty() ? std::wstring_view::npos : 0) {}
    bool Next(std::wstring_view& field) {
        if (cursor_ == std::wstring_view::npos)
            return false;
        const std::size_t end = text_.find_first_of(delims_, cursor_);
        if (end == std::wstring_view::npos) {
            field = text_.substr(cursor_);
            cursor_ = std::wstring_view::npos;
        } else {
            field = text_.substr(cursor_, end - cursor_);
            cursor_ = end + 1;
        }
        return true;
    }
    void Skip(std::size_t n) {
        if (cursor_ == std::wstring_view::npos)
            return;
        cursor_ = std::min(cursor_ + n, text_.size());
        if (cursor_ >= text_.size())
            cursor_ = std::wstring_view::npos;
    }
    std::size_t Cursor() const { return cursor_; }
    std::wstring_view Text() const { return text_; }

private:
    std::wstring_view text_;
    std::wstring_view delims_;
    std::size_t cursor_;
};

/// The number a field starts with (0 when none), read in full whatever its
/// length. A number beyond the range of a double makes the definition invalid:
/// no infinity enters a drawing.
template <class Fail>
double fieldNumber(std::wstring_view field, const Fail& fail) {
    const ulo::NumberScan scan = ulo::ScanNumber(field);
    if (scan.outOfRange)
        fail(2);
    return scan.value;
}

/// The elements a pattern line holds: its fields after "A", a bracketed text
/// record counting as one.
unsigned elementCount(std::wstring_view line) {
    unsigned n = 0;
    bool inText = false;
    for (const wchar_t c : line) {
        if (c == L'[')
            inText = true;
        else if (c == L']')
            inText = false;
        else if (c == L',' && !inText)
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
    return std::fopen(local.constData(), mode);
}

/// A text element's value: six decimals as "%f" writes them, but magnitudes
/// where six decimals add nothing in their shortest exact form ("1e+55"), so
/// every value reads back the same and four of them stay far below the
/// element's 1024 characters.
std::wstring formatNumber(double v) {
    if (std::fabs(v) >= 1e15)
        return ulo::ExactText(v);
    return ulo::CStringDaDouble(v, 0, 6).str();
}

/// Cuts a formatted piece to the formatting buffer (1023 characters).
std::wstring limited(std::wstring s) {
    if (s.size() > kFormatBuffer - 1)
        s.resize(kFormatBuffer - 1);
    return s;
}

void writeLine(std::FILE* f, const std::wstring& line) {
    std::string bytes;
    bytes.reserve(line.size() + 2);
    for (const wchar_t c : line) {
        if (static_cast<unsigned long>(c) > 255)
            throw IFile::IFileDiskFull();
        bytes += static_cast<char>(static_cast<unsigned char>(c));
    }
    bytes += "\r\n";
    if (std::fwrite(bytes.data(), 1, bytes.size(), f) != bytes.size())
        throw IFile::IFileDiskFull();
}

}  // namespace

struct CLtypeLoader::Private {
    Private(const CStyleTable* s, CObjectFactory* f) : styles(s), factory(f) {}
    const CStyleTable* styles;
    CObjectFactory* factory;
    IErrorNotifier* notifier = nullptr;
    CHandleObjectVectorCollection ltypes;
    // The last style found in the table: libraries use one or two styles
    // throughout, so most lookups end here.
    mutable std::wstring lastStyleName;
    mutable CStyle* lastStyle = nullptr;

    CStyle* FindStyle(std::wstring_view name) const;
    CLtypeComplexDashSeq Parse(const std::wstring& name, const std::wstring& line) const;
};

CStyle* CLtypeLoader::Private::FindStyle(std::wstring_view name) const {
    if (lastStyle && name == lastStyleName)
        return lastStyle;
    const ulo::WString text{std::wstring(name)};
    if (CStyle* style = styles ? styles->Find(text) : nullptr) {
        lastStyleName = name;
        lastStyle = style;
        return style;
    }
    // A name the table lacks is put to the notifier every time.
    return notifier ? notifier->GetUndefinedStyle(text) : nullptr;
}

CLtypeComplexDashSeq CLtypeLoader::Private::Parse(const std::wstring& name,
                                                  const std::wstring& line) const {
    const auto fail = [&](int code) { throw CLtypeLoaderLoadError(name, code); };
    CLtypeTokenizer tok(line, L",");
    std::wstring_view field;
    if (!tok.Next(field) || field != L"A")
        fail(1);
    CLtypeComplexDashSeq seq;
    seq.Reserve(elementCount(line));
    while (tok.Next(field)) {
        if (field.empty())
            fail(2);
        if (field[0] != L'[') {
            const double v = fieldNumber(field, fail);
            if (seq.GetNoDashes() == 0 && v < 0)
                fail(6);
            seq.AddDashDouble(v);
            continue;
        }
        if (seq.GetNoDashes() == 0)
            fail(7);
        if (field.back() == L']')
            fail(2);
        if (field.size() < 4 || field[1] != L'"' || field.back() != L'"')
            fail(5);
        const std::size_t from = tok.Cursor();
        const std::size_t close =
            from == std::wstring_view::npos ? std::wstring_view::npos : tok.Text().find(L']', from);
        if (close == std::wstring_view::npos)
            fail(2);
        const std::wstring_view body = tok.Text().substr(from, close - from);
        tok.Skip(body.size() + 2);  // the body, "]" and the separator after it
        TEXT_3D text(ulo::WString(std::wstring(field.substr(2, field.size() - 3))),
                     styles ? styles->GetStyleStandard() : nullptr, 1.0, 0.0, 1.0, 0.0,
                     ulo::geom::PNT_3D::Origin, 0, 0);
        CLtypeTokenizer keys(body, L",");
        std::wstring_view styleName;
        if (!keys.Next(styleName))
            fail(2);
        CStyle* style = FindStyle(styleName);
        if (!style)
            fail(3);
        text.SetStyle(style);
        std::wstring_view key;
        while (keys.Next(key)) {
            if (key.size() < 3 || key[1] != L'=')
                fail(2);
            const double v = fieldNumber(key.substr(2), fail);
            ulo::geom::PNT_3D p = text.GetPoint();
            switch (std::towupper(static_cast<std::wint_t>(key[0]))) {
                case L'S':
                    text.GetContext().SetHeight(v);
                    break;
                case L'R':
                    text.GetContext().SetRotate(v * kDegToRad);
                    break;
                case L'X':
                    p.x = v, text.SetPoint(p);
                    break;
                case L'Y':
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

CLtypeLoader::CLtypeLoader(const CStyleTable* styles, CObjectFactory* factory)
    : d(std::make_unique<Private>(styles, factory)) {}

CLtypeLoader::~CLtypeLoader() = default;

int CLtypeLoader::Load(const wchar_t* path) {
    d->ltypes.RemoveAll();
    d->lastStyle = nullptr;  // the table or the notifier may answer otherwise now
    FilePtr file(openFile(path, "rb"));
    if (!file)
        return -1;
    CLtypeLineReader reader(file.get());
    try {
        for (;;) {
            // The reader's buffer holds one line at a time: take the header's
            // parts before reading the pattern line.
            const std::wstring* line = &reader.Next();
            while ((*line)[0] != L'*')
                line = &reader.Next();
            const std::wstring& header = *line;
            const std::size_t comma = header.find(L',');
            ulo::WString name(std::wstring_view(header).substr(
                1, comma == std::wstring::npos ? std::wstring::npos : comma - 1));
            ulo::WString desc(comma == std::wstring::npos
                                  ? std::wstring_view()
                                  : std::wstring_view(header).substr(comma + 1));
            const std::wstring& pattern = reader.Next();
            try {
                CLtypeComplexDashSeq seq = d->Parse(name.str(), pattern);
                CLtype* ltype =
                    d->factory->CreateLtype(std::move(name), std::move(desc), std::move(seq), 0, 0);
                d->ltypes.Add(ltype);
                ltype->SubReference();
            } catch (const CLtypeLoaderLoadError& e) {
                if (d->notifier)
                    d->notifier->NotifyLoadError(path, reader.GetLineNo(), e.GetName(),
                                                 e.GetCode());
            }
        }
    } catch (const IFile::IFileEOF&) {
        return 0;
    }
}

void CLtypeLoader::Save(const wchar_t* path) {
    FilePtr file(openFile(path, "wb"));
    if (!file)
        return;
    try {
        for (unsigned i = 0; i < d->ltypes.GetNoElems(); ++i) {
            const auto* ltype = static_cast<const CLtype*>(d->ltypes.GetObjectNo(i));
            writeLine(file.get(),
                      limited(L"*" + ltype->GetName().str() + L"," + ltype->GetDesc().str()));
            std::wstring line = L"A";
            for (unsigned k = 0; k < ltype->GetNoDashes(); ++k) {
                const ILtypeComplexDash* dash = ltype->GetDash(k);
                line += L",";
                if (dash->IsDouble()) {
                    line += ulo::WString::ValueOf(dash->GetDouble(), 6).str();
                    continue;
                }
                const TEXT_3D* t = dash->GetText();
                const CStyle* style = t->GetStyle();
                line += limited(L"[\"" + t->GetContext().GetString().str() + L"\"," +
                                (style ? style->GetName().str() : std::wstring()) + L",S=" +
                                formatNumber(t->GetContext().GetHeight()) + L",R=" +
                                formatNumber(t->GetContext().GetRotate() / kDegToRad) + L",X=" +
                                formatNumber(t->GetPoint().x) + L",Y=" +
                                formatNumber(t->GetPoint().y) + L"]");
            }
            writeLine(file.get(), line);
        }
    } catch (const IFile::IFileDiskFull&) {
        // The lines written so far stay; the rest is not written.
    }
}

unsigned CLtypeLoader::GetNoLtypes() const {
    return d->ltypes.GetNoElems();
}

const CLtype* CLtypeLoader::GetLtypeNo(unsigned index) {
    return static_cast<const CLtype*>(d->ltypes.GetObjectNo(index));
}

void CLtypeLoader::Add(CLtype* ltype) {
    d->ltypes.Add(ltype);
}
void CLtypeLoader::Remove(CLtype* ltype) {
    d->ltypes.Remove(ltype);
}
void CLtypeLoader::SetNotifier(IErrorNotifier* notifier) {
    d->notifier = notifier;
}

}  // namespace veld
