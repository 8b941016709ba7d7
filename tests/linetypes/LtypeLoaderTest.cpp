// Loading and saving line type library files.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFile>
#include <QTemporaryDir>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "linetypes/LtypeLoader.h"
#include "ulo/NumberText.h"
#include "ulo/RefCounter.h"
#include "veld/Data.h"

using veld::CLtypeLoader;

namespace {

struct Report {
    unsigned line;
    std::wstring name;
    int code;
    bool operator==(const Report&) const = default;
};

class Recorder : public CLtypeLoader::IErrorNotifier {
public:
    explicit Recorder(veld::CStyle* fallback = nullptr) : fallback_(fallback) {}
    void NotifyLoadError(const ulo::WString&, unsigned line, const ulo::WString& name,
                         int code) override {
        reports.push_back({line, name.str(), code});
    }
    veld::CStyle* GetUndefinedStyle(const ulo::WString&) override { return fallback_; }
    std::vector<Report> reports;

private:
    veld::CStyle* fallback_;
};

bool makeFile(const QString& path, const QByteArray& bytes, qint64 size = -1) {
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size() &&
           (size < 0 || f.resize(size));  // the rest of a resized file is a hole
}

/// A fixed sequence of pseudo-random numbers below a bound (splitmix64), the
/// same on every run.
class Sequence {
public:
    std::uint64_t Next(std::uint64_t bound) {
        std::uint64_t z = state_ += 0x9e3779b97f4a7c15u;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
        return (z ^ (z >> 31)) % bound;
    }

private:
    std::uint64_t state_ = 42;
};

std::uint64_t bitsOf(double v) {
    return std::bit_cast<std::uint64_t>(v);
}

/// What a file holds of a line type: name, description, elements with their
/// values bit for bit, texts and style names.
std::string fileContent(const veld::CLtype& l) {
    const auto narrow = [](const ulo::WString& w) { return w.ToQString().toStdString(); };
    std::string s = narrow(l.GetName()) + "|" + narrow(l.GetDesc());
    for (unsigned i = 0; i < l.GetNoDashes(); ++i) {
        const veld::ILtypeComplexDash* d = l.GetDash(i);
        if (d->IsDouble()) {
            s += "|" + std::to_string(bitsOf(d->GetDouble()));
            continue;
        }
        const veld::TEXT_3D* t = d->GetText();
        s += "|[" + narrow(t->GetContext().GetString()) + "," + narrow(t->GetStyle()->GetName());
        for (const double v : {t->GetContext().GetHeight(), t->GetContext().GetRotate(),
                               t->GetPoint().x, t->GetPoint().y})
            s += "," + std::to_string(bitsOf(v));
        s += "]";
    }
    return s;
}

/// "A,1" and then @p fields over and over, padded with zeros to a line of
/// exactly 4095 characters: the longest the reader takes as one line.
std::string longestLine(const std::vector<std::string>& fields) {
    std::string line = "A,1";
    for (std::size_t i = 0; line.size() + 1 + fields[i % fields.size()].size() <= 4095; ++i)
        line += "," + fields[i % fields.size()];
    while (line.size() < 4095)
        line += line.size() == 4092 ? ",00" : ",0";
    return line;
}

/// The shortest text of a double: what the tests write into files.
std::string text(double v) {
    return QString::fromStdWString(ulo::ExactText(v)).toStdString();
}

class LoaderTest : public ::testing::Test {
protected:
    /// Loads @p bytes from a file of their own.
    int Load(const QByteArray& bytes) {
        const QString path = dir.filePath(QStringLiteral("t.lin"));
        EXPECT_TRUE(makeFile(path, bytes));
        return loader.Load(path.toStdWString().c_str());
    }
    /// Saves the held line types to the file saved names and returns its bytes.
    QByteArray Save() {
        loader.Save(saved.c_str());
        QFile f(QString::fromStdWString(saved));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    QTemporaryDir dir;
    const std::wstring saved = dir.filePath(QStringLiteral("out.lin")).toStdWString();
    veld::CData data;
    CLtypeLoader loader{&data.GetStyleTable(),
                        const_cast<veld::CObjectFactory*>(data.GetObjectFactory())};
    CLtypeLoader again{&data.GetStyleTable(),
                       const_cast<veld::CObjectFactory*>(data.GetObjectFactory())};
};

}  // namespace

// Codes 1, 4, 5, 6 and 7 with their lines: LoadDialogTest's first library reports them.
TEST_F(LoaderTest, ARejectedDefinitionIsReportedWithItsLineAndCode) {
    const struct {
        const char* what;
        const char* file;
        Report report;
        unsigned loaded;
    } cases[] = {
        {"two headers in a row", "*H1,a\n*H2,b\nA,1,-1\n*OK\nA,1,-1\n", {2, L"H1", 1}, 1},
        {"quote then ]", "*T\nA,1,[\"GAS\"],-1\n", {2, L"T", 2}, 0},
        {"empty text", "*T\nA,1,[\"\",STANDARD],-1\n", {2, L"T", 5}, 0},
        {"no closing ]", "*T\nA,1,[\"GAS\",STANDARD,S=1\n", {2, L"T", 2}, 0},
        {"key without =", "*T\nA,1,[\"GAS\",STANDARD,S],-1\n", {2, L"T", 2}, 0},
        {"unknown style", "*T\nA,1,[\"GAS\",NOSUCH],-1\n", {2, L"T", 3}, 0},
        {"comments count", ";; c\n\n;; c\n  \n*L1,x\n\t\nA,1,-1,\n", {7, L"L1", 2}, 0},
        // No infinity enters a drawing: a number beyond a double's range is invalid.
        {"number out of range", "*BIG\nA,1,-1e400\n*OK\nA,1,-1\n", {2, L"BIG", 2}, 1},
        {"key out of range", "*T\nA,1,[\"G\",STANDARD,S=1e999],-1\n", {2, L"T", 2}, 0},
    };
    for (const auto& c : cases) {
        Recorder rec;
        loader.SetNotifier(&rec);
        EXPECT_EQ(Load(c.file), 0) << c.what;
        ASSERT_EQ(rec.reports.size(), 1u) << c.what;
        EXPECT_EQ(rec.reports[0], c.report) << c.what;
        EXPECT_EQ(loader.GetNoLtypes(), c.loaded) << c.what;
    }
}

// A header without a pattern line at the end of the file is no error.
// Eight-bit characters come in as Latin-1 and are saved back as they were.
TEST_F(LoaderTest, HeadersSplitAtTheFirstCommaAndATrailingOneIsNoError) {
    Recorder rec;
    loader.SetNotifier(&rec);
    EXPECT_EQ(
        Load("*FENCE,Fence ,x, o\nA,1,-1\n*,empty name\nA,1,-1\n*CAF\xc9,Caf\xe9 \xb0\nA,1,-1\n"
             "*LAST,no pattern\n;; end\n"),
        0);
    EXPECT_TRUE(rec.reports.empty());
    ASSERT_EQ(loader.GetNoLtypes(), 3u);
    EXPECT_EQ(loader.GetLtypeNo(0)->GetName(), L"FENCE");
    EXPECT_EQ(loader.GetLtypeNo(0)->GetDesc(), L"Fence ,x, o");
    EXPECT_EQ(loader.GetLtypeNo(1)->GetName(), L"");
    EXPECT_EQ(loader.GetLtypeNo(1)->GetDesc(), L"empty name");
    EXPECT_EQ(loader.GetLtypeNo(2)->GetName(), L"CAF\u00c9");
    EXPECT_TRUE(Save().contains("\r\n*CAF\xc9,Caf\xe9 \xb0\r\n"));
}

TEST_F(LoaderTest, TextElementKeysAndTheCharacterAfterTheBracket) {
    Load(
        "*GAS\nA,1,[\"G\",STANDARD,s=2,r=90,Q=5,x=-1,y=0.5,S=3]25,-1\n"
        "*W\nA,1,[\"W\",STANDARD],-2\n");
    ASSERT_EQ(loader.GetNoLtypes(), 2u);
    const veld::CLtype* gas = loader.GetLtypeNo(0);
    ASSERT_EQ(gas->GetNoDashes(), 4u);
    const veld::TEXT_3D* t = gas->GetDash(1)->GetText();
    ASSERT_NE(t, nullptr);
    EXPECT_EQ(t->GetContext().GetHeight(), 3.0);  // a key given twice takes the later value
    EXPECT_NEAR(t->GetContext().GetRotate(), std::numbers::pi / 2, 1e-9);
    EXPECT_EQ(t->GetPoint().x, -1.0);
    EXPECT_EQ(t->GetPoint().y, 0.5);
    EXPECT_EQ(gas->GetDash(2)->GetDouble(), 5.0);  // "2" went with the "]"
    EXPECT_EQ(gas->GetDash(3)->GetDouble(), -1.0);
    EXPECT_EQ(loader.GetLtypeNo(1)->GetDash(2)->GetDouble(), -2.0);
}

TEST_F(LoaderTest, NumbersReadAsTheToolkitReadsThem) {
    // A field is read from its start as far as it forms a number, as
    // ulo::ScanNumber reads it; the loader's fast path for plain decimals must
    // agree everywhere: up to 18 digits, the point anywhere or nowhere, a sign
    // or none, text after the number or none; in elements and in keys alike.
    std::vector<std::string> texts = {"1e2", "-1.5E-1", " 3",   "+4",  "1e",  "-",     "e5",
                                      "--2", "1-2",     "0x10", "inf", "nan", "1e-400"};
    texts.push_back("-0." + std::string(70, '0') + "1");
    texts.push_back("1" + std::string(300, '0'));
    Sequence seq;
    for (int i = 0; i < 3000; ++i) {
        std::string t = seq.Next(2) ? "-" : "";
        const auto digits = 1 + seq.Next(18);
        const auto point = seq.Next(digits + 2);  // digits + 1: no point
        for (std::uint64_t k = 0; k < digits; ++k) {
            if (k == point)
                t += '.';
            t += static_cast<char>('0' + seq.Next(10));
        }
        if (point == digits)
            t += '.';
        t += seq.Next(4) == 0 ? "x" : "";
        texts.push_back(std::move(t));
    }
    QByteArray file;
    for (const std::string& t : texts)
        file += QByteArray::fromStdString("*N\nA,1," + t + ",[\"T\",STANDARD,X=" + t + "]\n");
    Load(file);
    ASSERT_EQ(loader.GetNoLtypes(), texts.size());
    for (unsigned i = 0; i < texts.size(); ++i) {
        const double scanned =
            ulo::ScanNumber(std::wstring(texts[i].begin(), texts[i].end())).value;
        veld::CLtypeComplexDashSeq kept;  // the number as the model keeps it
        kept.AddDashDouble(scanned);
        const veld::CLtype* l = loader.GetLtypeNo(i);
        EXPECT_EQ(bitsOf(l->GetDash(1)->GetDouble()), bitsOf(kept.GetDash(0)->GetDouble()))
            << texts[i];
        EXPECT_EQ(l->GetDash(2)->GetText()->GetPoint().x, scanned) << texts[i];  // -0 is 0 there
    }
}

TEST_F(LoaderTest, LinesAcrossTheReadBlocksCountAsInASmallFile) {
    // Some 400 KB: lines and long comment lines fall across every boundary
    // the reader's blocks have. A line of n bytes with its "\n" counts as
    // ceil(n / 4095) pieces; a definition closes the file with an error on
    // its pattern line.
    Sequence seq;
    QByteArray file;
    unsigned pieces = 0, definitions = 0;
    while (file.size() < 400000) {
        const char* const end = seq.Next(2) ? "\r\n" : "\n";
        const int eol = static_cast<int>(std::strlen(end));
        if (seq.Next(8) == 0) {
            // Half of them end right at or beside a piece's end.
            const int nearEnd = 4095 * (1 + static_cast<int>(seq.Next(2))) - 1 +
                                static_cast<int>(seq.Next(3)) - eol;
            const int length = seq.Next(2) ? nearEnd : 2 + static_cast<int>(seq.Next(10000));
            file += ";;" + QByteArray(length - 2, 'x') + end;
            pieces += static_cast<unsigned>((length + eol + 4094) / 4095);
        } else {
            const QByteArray name = "L" + QByteArray::number(definitions++);
            file += "*" + name + "," + QByteArray(static_cast<int>(seq.Next(100)), 'd') + end +
                    "A,1,-" + QByteArray::number(static_cast<int>(seq.Next(1000))) + end;
            pieces += 2;
        }
    }
    file += "*BAD\nA,-1,1\n";
    Recorder rec;
    loader.SetNotifier(&rec);
    EXPECT_EQ(Load(file), 0);
    EXPECT_EQ(loader.GetNoLtypes(), definitions);
    EXPECT_EQ(rec.reports, (std::vector<Report>{{pieces + 2, L"BAD", 6}}));
}

TEST_F(LoaderTest, ALibraryThatIsNotARegularFileOrIsTooLargeLoadsNothingAtOnce) {
    using F = CLtypeLoader::LoadFailure;
    constexpr auto kLimit = static_cast<qint64>(CLtypeLoader::kMaxFileSize);
    const QString full = dir.filePath(QStringLiteral("full.lin"));
    ASSERT_TRUE(makeFile(full, "*OK\nA,1,-1\n", kLimit));
    // Past the first block the reader takes, a bad definition makes the file
    // grow beyond the limit while it is being read.
    const QString grows = dir.filePath(QStringLiteral("grows.lin"));
    ASSERT_TRUE(makeFile(grows, "*OK\nA,1,-1\n*BAD\nA,-1,1\n" + QByteArray(100000, '\n')));
    struct Growing : Recorder {
        QString file;
        void NotifyLoadError(const ulo::WString&, unsigned, const ulo::WString&, int) override {
            if (!file.isEmpty())
                QFile::resize(file, kLimit + 1);
        }
    } growing;
    loader.SetNotifier(&growing);
    const struct {
        const char* what;
        QString path;
        int result;
        F failure;
        unsigned loaded;
    } cases[] = {
        // Pipes, devices, links to them, one byte over the limit: VeldLinTest.
        {"a folder", dir.path(), -1, F::NotRegularFile, 0},
        {"at the limit", full, 0, F::None, 1},
        {"growing past the limit while read", grows, -1, F::TooLarge, 0},
        {"missing", dir.filePath(QStringLiteral("missing.lin")), -1, F::CannotOpen, 0},
    };
    for (const auto& c : cases) {
        growing.file = c.path == grows ? grows : QString();
        Load("*HELD\nA,1,-1\n");
        ASSERT_EQ(loader.GetNoLtypes(), 1u);
        EXPECT_EQ(loader.Load(c.path.toStdWString().c_str()), c.result) << c.what;
        EXPECT_EQ(loader.GetLoadFailure(), c.failure) << c.what;
        EXPECT_EQ(loader.GetNoLtypes(), c.loaded) << c.what;
    }
}

TEST_F(LoaderTest, WhatLoadedSavesAndLoadsBackTheSame) {
    // Every library loads in full; saved and loaded again, it gives the same
    // line types, bit for bit. A line that would grow past 4095 characters
    // (a style the drawing lacks, written as STANDARD) is named and left out:
    // VeldLinTest's ConvertNamesTheDefinitionsItLeavesOut.
    std::string many = "*MANY,150 text elements\nA,0.5";
    for (int i = 0; i < 150; ++i)
        many += ",[\"G" + std::to_string(i % 10) + "\",STANDARD],-0.25";
    Sequence seq;
    std::string random;  // values of every magnitude, subnormals among them
    const auto anyValue = [&] {
        double v;
        do
            v = std::bit_cast<double>(seq.Next(std::numeric_limits<std::uint64_t>::max()));
        while (!std::isfinite(v));
        return v;
    };
    const auto any = [&] { return text(anyValue()); };
    for (int i = 0; i < 200; ++i)
        random += "*R" + std::to_string(i) + "\nA," + text(std::fabs(anyValue())) +
                  ",[\"r\",STANDARD,S=" + any() + ",R=" + any() + ",X=" + any() + ",Y=" + any() +
                  "]," + any() + "\n";
    const struct {
        const char* what;
        std::string file;
    } cases[] = {
        {"150 text elements", many + "\n"},
        {"a line of 4095 characters whose numbers are longer written in full",
         "*NUMBERS\n" + longestLine({"1e9", ".5", "123e10", "-1E5", "1e-7", "-.25"}) + "\n"},
        {"a line of 4095 characters of text elements",
         "*TEXTS\n" + longestLine({"[\"T\",STANDARD]", "[\"U\",standard,s=2,Q=7]x9", "-1"}) + "\n"},
        {"a text of 1500 characters", "*LONGTEXT\nA,1,[\"" + std::string(1500, 'T') +
                                          "\",STANDARD,S=2.5,R=45,X=-1,Y=1e-300],-1\n"},
        {"a name of 2000 characters with a description",
         "*" + std::string(2000, 'N') + "," + std::string(1500, 'd') + "\nA,1,-1\n"},
        {"a name of 4094 characters and no description",
         "*" + std::string(4094, 'N') + "\nA,1,-1\n"},
        {"extreme and subnormal values",
         "*EXTREMES\nA,4e-320,-2.2e-308,1.7976931348623157e308,-1.7976931348623157e308,-0,"
         "5e-324,0.1,0.30000000000000004,1e-7,123456789012345678,"
         "[\"X\",STANDARD,S=4e-320,R=-0,X=1.7976931348623157e308,Y=-2.2e-308],"
         "[\"R\",STANDARD,R=4e-320,S=1e55],[\"R\",STANDARD,R=1.7976931348623157e308,X=-0],"
         "[\"R\",STANDARD,R=33.333333333333336,Y=5e-324],[\"R\",STANDARD,R=-2e300],-1\n"
         "*ZERO FIRST\nA,-0,-0\n"},
        {"values of every magnitude", random},
    };
    Recorder rec(data.GetStyleTable().GetStyleStandard());
    loader.SetNotifier(&rec);
    again.SetNotifier(&rec);
    for (const auto& c : cases) {
        rec.reports.clear();
        ASSERT_EQ(Load(QByteArray::fromStdString(c.file)), 0) << c.what;
        ASSERT_TRUE(rec.reports.empty()) << c.what;
        ASSERT_GT(loader.GetNoLtypes(), 0u) << c.what;
        Save();
        EXPECT_EQ(loader.GetNoUnsaved(), 0u) << c.what;
        EXPECT_EQ(again.Load(saved.c_str()), 0) << c.what;
        EXPECT_TRUE(rec.reports.empty()) << c.what;
        std::vector<std::string> expected, got;
        for (unsigned i = 0; i < loader.GetNoLtypes(); ++i)
            expected.push_back(fileContent(*loader.GetLtypeNo(i)));
        for (unsigned i = 0; i < again.GetNoLtypes(); ++i)
            got.push_back(fileContent(*again.GetLtypeNo(i)));
        EXPECT_EQ(got, expected) << c.what;
    }
}

TEST_F(LoaderTest, ALineTypeThatWouldNotReadBackIsLeftOutAndNamed) {
    using R = CLtypeLoader::SaveRefusal;
    veld::CStyle* standard = data.GetStyleTable().GetStyleStandard();
    const auto dashes = [](std::vector<double> numbers) {
        veld::CLtypeComplexDashSeq seq;
        for (const double v : numbers)
            seq.AddDashDouble(v);
        return seq;
    };
    /// 1, the text, -1; or the text first.
    const auto withText = [&](const wchar_t* t, veld::CStyle* style = nullptr, double height = 1,
                              bool first = false) {
        veld::CLtypeComplexDashSeq seq = dashes(first ? std::vector<double>{} : std::vector{1.0});
        seq.AddDashText(veld::TEXT_3D(t, style ? style : standard, height, 0, 1, 0,
                                      ulo::geom::PNT_3D::Origin, 0, 0));
        seq.AddDashDouble(-1);
        return seq;
    };
    const auto unnamed = ulo::RefPtr<veld::CStyle>::Adopt(
        data.GetObjectFactory()->CreateStyle(L"", nullptr, 0, 1, 0, 1, 0, 0));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        const char* what;
        std::wstring name, desc;
        veld::CLtypeComplexDashSeq seq;
        R reason;
    } cases[] = {
        {"a name with a comma", L"A,B", L"", dashes({1, -1}), R::NotReadable},
        {"a name with a line end", L"A\nB", L"", dashes({1, -1}), R::NotReadable},
        {"a description with a line end", L"BAD", L"x\ny", dashes({1, -1}), R::NotReadable},
        {"a description ending in a blank", L"BAD", L"x ", dashes({1, -1}), R::NotReadable},
        {"no elements", L"BAD", L"", dashes({}), R::NotReadable},
        {"one element", L"BAD", L"", dashes({1}), R::NotReadable},
        {"a negative first element", L"BAD", L"", dashes({-1, 1}), R::NotReadable},
        {"a text first", L"BAD", L"", withText(L"T", nullptr, 1, true), R::NotReadable},
        {"a text with a comma", L"BAD", L"", withText(L"a,b"), R::NotReadable},
        {"an empty text", L"BAD", L"", withText(L""), R::NotReadable},
        {"a style without a name", L"BAD", L"", withText(L"T", unnamed.get()), R::NotReadable},
        {"a value that is not a number", L"BAD", L"", dashes({1, nan}), R::NotReadable},
        {"an infinite height", L"BAD", L"", withText(L"T", nullptr, HUGE_VAL), R::NotReadable},
        {"a name of 4095 characters", std::wstring(4095, L'N'), L"", dashes({1, -1}),
         R::LineTooLong},
        {"a description too long for the line", L"BAD", std::wstring(4092, L'd'), dashes({1, -1}),
         R::LineTooLong},
        {"a character above 255", L"BAD", L"\u20ac", dashes({1, -1}), R::NoEightBitForm},
    };
    const veld::CObjectFactory* factory = data.GetObjectFactory();
    for (const auto& c : cases) {
        Load("*FIRST\nA,1,-1\n");
        veld::CLtype* bad = factory->CreateLtype(c.name, c.desc, c.seq, 0, 0);
        veld::CLtype* last = factory->CreateLtype(L"LAST", L"", dashes({2, -2}), 0, 0);
        for (veld::CLtype* l : {bad, last}) {
            loader.Add(l);
            l->SubReference();
        }
        Save();
        // Save ends at a character it cannot write: the rest is not written.
        const bool stops = c.reason == R::NoEightBitForm;
        ASSERT_EQ(loader.GetNoUnsaved(), stops ? 2u : 1u) << c.what;
        EXPECT_EQ(loader.GetUnsavedNo(0).ltype, bad) << c.what;
        EXPECT_EQ(loader.GetUnsavedNo(0).reason, c.reason) << c.what;
        if (stops) {
            EXPECT_EQ(loader.GetUnsavedNo(1).ltype, last) << c.what;
            EXPECT_EQ(loader.GetUnsavedNo(1).reason, R::NotWritten) << c.what;
        }
        Recorder rec;
        again.SetNotifier(&rec);
        ASSERT_EQ(again.Load(saved.c_str()), 0) << c.what;
        EXPECT_TRUE(rec.reports.empty()) << c.what;
        ASSERT_EQ(again.GetNoLtypes(), stops ? 1u : 2u) << c.what;
        EXPECT_EQ(again.GetLtypeNo(again.GetNoLtypes() - 1)->GetName(), stops ? L"FIRST" : L"LAST")
            << c.what;
    }
    // A file that cannot be written, or is no regular file (a FIFO is not
    // waited on), leaves everything out.
    const QString fifo = dir.path() + QStringLiteral("/pipe.lin");
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    for (const QString& target :
         {dir.path() + QStringLiteral("/no/such/folder.lin"), fifo, dir.path()}) {
        loader.Save(target.toStdWString().c_str());
        ASSERT_EQ(loader.GetNoUnsaved(), 3u) << target.toStdString();
        EXPECT_EQ(loader.GetUnsavedNo(2).reason, R::NotWritten);
    }
}
