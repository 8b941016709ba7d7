// Loading and saving line type library files.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFile>
#include <QTemporaryDir>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "linetypes/LtypeLoader.h"
#include "ulo/NumberText.h"
#include "ulo/SpecialFolder.h"
#include "veld/Data.h"
#include "veld/IFile.h"

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

class LoaderTest : public ::testing::Test {
protected:
    /// Loads @p bytes from a file of their own.
    int Load(const QByteArray& bytes) {
        const QString path = dir.filePath(QStringLiteral("t.lin"));
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        f.close();
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

TEST_F(LoaderTest, ARejectedDefinitionIsReportedWithItsLineAndCode) {
    const std::string fourHundredDigits = "*D\nA,1," + std::string(400, '9') + "\n";
    const struct {
        const char* what;
        const char* file;
        Report report;
        unsigned loaded;
    } cases[] = {
        {"lower-case alignment", "*L1,x\na,1,-1\n", {2, L"L1", 1}, 0},
        {"two headers in a row", "*H1,a\n*H2,b\nA,1,-1\n*OK\nA,1,-1\n", {2, L"H1", 1}, 1},
        {"alignment alone", "*L4\nA\n", {2, L"L4", 4}, 0},
        {"one number", "*L4\nA,1\n", {2, L"L4", 4}, 0},
        {"trailing comma", "*L2\nA,1,-1,\n", {2, L"L2", 2}, 0},
        {"negative first", "*L6\nA,-1,1\n", {2, L"L6", 6}, 0},
        {"text first", "*L7\nA,[\"GAS\",STANDARD],1\n", {2, L"L7", 7}, 0},
        {"quote then ]", "*T\nA,1,[\"GAS\"],-1\n", {2, L"T", 2}, 0},
        {"unquoted text", "*T\nA,1,[GAS,STANDARD],-1\n", {2, L"T", 5}, 0},
        {"empty text", "*T\nA,1,[\"\",STANDARD],-1\n", {2, L"T", 5}, 0},
        {"no closing ]", "*T\nA,1,[\"GAS\",STANDARD,S=1\n", {2, L"T", 2}, 0},
        {"key without =", "*T\nA,1,[\"GAS\",STANDARD,S],-1\n", {2, L"T", 2}, 0},
        {"unknown style", "*T\nA,1,[\"GAS\",NOSUCH],-1\n", {2, L"T", 3}, 0},
        {"comments count", ";; c\n\n;; c\n  \n*L1,x\n\t\nA,1,-1,\n", {7, L"L1", 2}, 0},
        // No infinity enters a drawing: a number beyond a double's range is invalid.
        {"number out of range", "*BIG\nA,1,-1e400\n*OK\nA,1,-1\n", {2, L"BIG", 2}, 1},
        {"key out of range", "*T\nA,1,[\"G\",STANDARD,S=1e999],-1\n", {2, L"T", 2}, 0},
        {"400 digits", fourHundredDigits.c_str(), {2, L"D", 2}, 0},
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

TEST_F(LoaderTest, FilesWithoutDefinitionsOrWithATrailingHeader) {
    Recorder rec;
    loader.SetNotifier(&rec);
    EXPECT_EQ(Load(";; only\nstray line\n\n"), 0);
    EXPECT_EQ(loader.GetNoLtypes(), 0u);
    EXPECT_EQ(Load("*A1\nA,0,-1\n*LAST,no pattern\n;; end\n"), 0);
    EXPECT_EQ(loader.GetNoLtypes(), 1u);  // a first element of zero is fine
    EXPECT_TRUE(rec.reports.empty());
    EXPECT_EQ(loader.Load((dir.path() + QStringLiteral("/missing.lin")).toStdWString().c_str()),
              -1);
    EXPECT_EQ(loader.GetNoLtypes(), 0u);
    EXPECT_EQ(loader.Load(dir.path().toStdWString().c_str()), -1);  // a folder
}

TEST_F(LoaderTest, HeaderSplitsAtTheFirstComma) {
    Load("*FENCE,Fence ,x, o\nA,1,-1\n*NODESC\nA,1,-1\n*,empty name\nA,1,-1\n");
    ASSERT_EQ(loader.GetNoLtypes(), 3u);
    EXPECT_EQ(loader.GetLtypeNo(0)->GetName(), L"FENCE");
    EXPECT_EQ(loader.GetLtypeNo(0)->GetDesc(), L"Fence ,x, o");
    EXPECT_EQ(loader.GetLtypeNo(1)->GetDesc(), L"");
    EXPECT_EQ(loader.GetLtypeNo(2)->GetName(), L"");
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
    // Each field is read from its start as far as it forms a number; the
    // loader's fast path for plain decimals must agree with that everywhere.
    const std::string longZero = "-0." + std::string(70, '0') + "1";
    const std::string longNumber = "1" + std::string(300, '0');
    const struct {
        std::string field;
        double value;
    } cases[] = {
        {"1.5", 1.5},      {"-0.25", -0.25},   {".5", 0.5},         {"2.", 2.0},
        {"1e2", 100.0},    {"-1.5E-1", -0.15}, {" 3", 3.0},         {"+4", 4.0},
        {" -0.25", -0.25}, {"+0.5", 0.5},      {"7abc", 7.0},       {"1e", 1.0},
        {"-", 0.0},        {"e5", 0.0},        {"--2", 0.0},        {"1-2", 1.0},
        {"0.1", 0.1},      {"0x10", 0.0},      {"inf", 0.0},        {"nan", 0.0},
        {"1e-400", 0.0},   {longZero, -1e-71}, {longNumber, 1e300},
    };
    for (const auto& c : cases) {
        Load(QByteArray("*N\nA,1,") + c.field.c_str() + "\n");
        ASSERT_EQ(loader.GetNoLtypes(), 1u) << c.field;
        EXPECT_EQ(loader.GetLtypeNo(0)->GetDash(1)->GetDouble(), c.value) << c.field;
        Load(QByteArray("*T\nA,1,[\"T\",STANDARD,X=") + c.field.c_str() + "],-1\n");
        ASSERT_EQ(loader.GetNoLtypes(), 1u) << c.field;
        EXPECT_EQ(loader.GetLtypeNo(0)->GetDash(1)->GetText()->GetPoint().x, c.value) << c.field;
    }
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

TEST_F(LoaderTest, DecimalsOfEveryLengthReadAsTheToolkitReadsThem) {
    // Up to 18 digits with the point anywhere or nowhere, a sign or none and
    // text after the number or none: the plain decimals of at most 15
    // digits and the longer ones alike.
    Sequence seq;
    std::vector<std::string> texts;
    QByteArray file;
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
        file += "*N\nA,1," + QByteArray::fromStdString(t) + "\n";
        texts.push_back(std::move(t));
    }
    Load(file);
    ASSERT_EQ(loader.GetNoLtypes(), texts.size());
    for (unsigned i = 0; i < texts.size(); ++i) {
        const double expected =
            ulo::ScanNumber(std::wstring(texts[i].begin(), texts[i].end())).value;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(loader.GetLtypeNo(i)->GetDash(1)->GetDouble()),
                  std::bit_cast<std::uint64_t>(expected))
            << texts[i];
    }
}

TEST_F(LoaderTest, SavedNumbersAreTheToolkitsTexts) {
    // Pattern elements as ulo::WString::ValueOf(v, 6) writes them; text values
    // as ulo::CStringDaDouble(v, 0, 6), or their shortest exact form from
    // 1e15 on.
    std::vector<double> values = {0.0,
                                  -0.0,
                                  0.5,
                                  -0.25,
                                  0.1,
                                  1.0 / 3,
                                  -2.0 / 3,
                                  1e-7,
                                  -1e-7,
                                  5e-7,
                                  -5e-7,
                                  4.999999e-7,
                                  5.000001e-7,
                                  1.0000005,
                                  2.5e-6,
                                  0.1 + 0.2,
                                  123456.789012,
                                  4294967295.5,
                                  4294967296.0,
                                  -4294967296.25,
                                  1e9 + 1e-6,
                                  1e14 + 0.5,
                                  999999999999999.9,
                                  1e15,
                                  -1e300,
                                  1e-300,
                                  12.3456785,
                                  -0.0000004};
    Sequence seq;
    for (int i = 0; i < 2000; ++i) {
        // Millionths of every size, and values of no short decimal form.
        const double millionths = static_cast<double>(seq.Next(1ull << 52)) /
                                  std::pow(10.0, static_cast<double>(seq.Next(16)));
        values.push_back((seq.Next(2) ? -1 : 1) * std::round(millionths) / 1e6);
        values.push_back(millionths * 1e-3 / 7);
    }
    const auto narrow = [](const std::wstring& w) { return std::string(w.begin(), w.end()); };
    std::vector<std::string> expected;
    for (const double v : values) {
        const std::string text =
            narrow(std::fabs(v) >= 1e15 ? ulo::ExactText(v) : ulo::CStringDaDouble(v, 0, 6).str());
        expected.push_back("A,1," + narrow(ulo::WString::ValueOf(v, 6).str()) +
                           ",[\"T\",STANDARD,S=" + text + ",R=0.000000,X=" + text + ",Y=" + text +
                           "]");
        veld::CLtypeComplexDashSeq dashes;
        dashes.AddDashDouble(1);
        dashes.AddDashDouble(v);
        dashes.AddDashText(veld::TEXT_3D(L"T", data.GetStyleTable().GetStyleStandard(), v, 0, 1, 0,
                                         {v, v, 0}, 0, 0));
        veld::CLtype* ltype = data.GetObjectFactory()->CreateLtype(L"V", L"", dashes, 0, 0);
        loader.Add(ltype);
        ltype->SubReference();
    }
    const QList<QByteArray> lines = Save().split('\n');
    ASSERT_EQ(lines.size(), 2 * values.size() + 1);
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(lines[static_cast<qsizetype>(2 * i + 1)].toStdString(), expected[i] + "\r")
            << std::bit_cast<std::uint64_t>(values[i]);
}

TEST_F(LoaderTest, HeadersAndTextElementsAreCutTo1023CharactersWhenSaved) {
    // A character with no 8-bit form beyond the cut is not written, so it
    // does not stop the save.
    const std::wstring desc = std::wstring(1100, L'd') + L"\u20ac";
    veld::CLtypeComplexDashSeq dashes;
    dashes.AddDashDouble(1);
    dashes.AddDashText(veld::TEXT_3D(std::wstring(1100, L't'),
                                     data.GetStyleTable().GetStyleStandard(), 1, 0, 1, 0,
                                     ulo::geom::PNT_3D::Origin, 0, 0));
    const veld::CObjectFactory* factory = data.GetObjectFactory();
    for (veld::CLtype* ltype : {factory->CreateLtype(L"LONG", desc, dashes, 0, 0),
                                factory->CreateLtype(L"NEXT", L"", {}, 0, 0)}) {
        loader.Add(ltype);
        ltype->SubReference();
    }
    EXPECT_EQ(Save(), "*LONG," + QByteArray(1017, 'd') + "\r\nA,1,[\"" + QByteArray(1021, 't') +
                          "\r\n*NEXT,\r\nA\r\n");
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

TEST_F(LoaderTest, UndefinedStylesComeFromTheNotifierEveryTime) {
    struct Counting : Recorder {
        using Recorder::Recorder;
        veld::CStyle* GetUndefinedStyle(const ulo::WString& name) override {
            asked.push_back(name.str());
            return Recorder::GetUndefinedStyle(name);
        }
        std::vector<std::wstring> asked;
    } rec(data.GetStyleTable().GetStyleStandard());
    loader.SetNotifier(&rec);
    Load(
        "*A\nA,1,[\"X\",NOSUCH],-1,[\"Y\",STANDARD],-1\n"
        "*A\nA,1,[\"X\",NOSUCH],-1,[\"Y\",standard],-1\n");
    EXPECT_EQ(rec.asked, (std::vector<std::wstring>{L"NOSUCH", L"NOSUCH"}));
    EXPECT_TRUE(rec.reports.empty());
    ASSERT_EQ(loader.GetNoLtypes(), 2u);  // names are not checked
    EXPECT_EQ(loader.GetLtypeNo(0)->GetDash(1)->GetText()->GetStyle()->GetName(), L"STANDARD");
    EXPECT_EQ(loader.GetLtypeNo(1)->GetDash(3)->GetText()->GetStyle()->GetName(), L"STANDARD");
}

TEST_F(LoaderTest, LongLinesCountAsSeveralPieces) {
    Recorder rec;
    loader.SetNotifier(&rec);
    Load(";;" + QByteArray(5000, 'x') + "\n*L\nA,1,-1,\n");
    ASSERT_EQ(rec.reports.size(), 1u);
    EXPECT_EQ(rec.reports[0].line, 4u);  // 4095 + 908 bytes: two pieces, then two lines
}

// The saved notation and a round trip through it: tests/apps (veld-lin convert).
TEST_F(LoaderTest, HugeTextValuesReadBackTheSame) {
    // Six decimals of 1e300 take 307 characters; four such values would not
    // fit the element's 1024, and a cut value reads back as another number.
    Load("*BIG\nA,1,[\"B\",STANDARD,S=1e55,R=-2e300,X=-1e300,Y=123456789012345678],-1\n");
    ASSERT_EQ(loader.GetNoLtypes(), 1u);
    const QByteArray bytes = Save();
    EXPECT_LT(bytes.indexOf(']') - bytes.indexOf('['), 1024) << bytes.constData();
    ASSERT_EQ(again.Load(saved.c_str()), 0);
    ASSERT_EQ(again.GetNoLtypes(), 1u);
    const veld::TEXT_3D* a = loader.GetLtypeNo(0)->GetDash(1)->GetText();
    const veld::TEXT_3D* b = again.GetLtypeNo(0)->GetDash(1)->GetText();
    EXPECT_EQ(b->GetContext().GetHeight(), a->GetContext().GetHeight());
    EXPECT_DOUBLE_EQ(b->GetContext().GetRotate(), a->GetContext().GetRotate());
    EXPECT_EQ(b->GetPoint().x, a->GetPoint().x);
    EXPECT_EQ(b->GetPoint().y, a->GetPoint().y);
}

TEST_F(LoaderTest, EightBitCharactersRoundTripAndSaveStopsAtOneWithNoEightBitForm) {
    Load("*CAF\xc9,Caf\xe9 \xb0\nA,1,-1\n");
    ASSERT_EQ(loader.GetNoLtypes(), 1u);
    EXPECT_EQ(loader.GetLtypeNo(0)->GetName(), L"CAF\u00c9");
    EXPECT_TRUE(Save().startsWith("*CAF\xc9,Caf\xe9 \xb0\r\n"));

    Load("*FIRST\nA,1,-1\n*SECOND\nA,2,-2\n");
    ASSERT_EQ(loader.GetNoLtypes(), 2u);
    const_cast<veld::CLtype*>(loader.GetLtypeNo(1))->SetDesc(L"\u20ac sign");
    EXPECT_EQ(Save(), QByteArray("*FIRST,\r\nA,1,-1\r\n"));
}

TEST_F(LoaderTest, AReadFailureMidFileIsLeftToTheCaller) {
    // A directory opened as a stream fails on read; reach it through a path
    // that passes the open check: /proc/self/mem cannot be read at offset 0.
    struct stat st {};
    if (::stat("/proc/self/mem", &st) != 0)
        GTEST_SKIP() << "no /proc";
    EXPECT_THROW(loader.Load(L"/proc/self/mem"), veld::IFile::IFileIOError);
}

TEST_F(LoaderTest, TheDefaultLibraryLoadsWithoutRejectedDefinitions) {
    ulo::WString path;
    ASSERT_TRUE(ulo::FGetSpecialFolderPathAndSubDir(1, L"support\\veld.lin", path));
    Recorder rec;
    loader.SetNotifier(&rec);
    ASSERT_EQ(loader.Load(path.c_str()), 0) << path.ToQString().toStdString();
    EXPECT_TRUE(rec.reports.empty());
    EXPECT_GE(loader.GetNoLtypes(), 30u);
}
