// Loading and saving line type library files.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <vector>

#include "linetypes/LtypeLoader.h"
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
    std::wstring Write(const QByteArray& bytes, const QString& name = QStringLiteral("t.lin")) {
        const QString path = dir.filePath(name);
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        return path.toStdWString();
    }
    QTemporaryDir dir;
    veld::CData data;
    CLtypeLoader loader{&data.GetStyleTable(),
                        const_cast<veld::CObjectFactory*>(data.GetObjectFactory())};
};

struct BadCase {
    const char* what;
    const char* file;
    Report report;
    unsigned loaded;
};
class RejectedDefinition : public LoaderTest, public ::testing::WithParamInterface<BadCase> {};

}  // namespace

TEST_P(RejectedDefinition, IsReportedWithItsLineAndCode) {
    const BadCase c = GetParam();
    Recorder rec;
    loader.SetNotifier(&rec);
    EXPECT_EQ(loader.Load(Write(c.file).c_str()), 0);
    ASSERT_EQ(rec.reports.size(), 1u) << c.what;
    EXPECT_EQ(rec.reports[0], c.report) << c.what;
    EXPECT_EQ(loader.GetNoLtypes(), c.loaded) << c.what;
}

const std::string kFourHundredDigits = "*D\nA,1," + std::string(400, '9') + "\n";

INSTANTIATE_TEST_SUITE_P(
    Codes, RejectedDefinition,
    ::testing::Values(
        BadCase{"lower-case alignment", "*L1,x\na,1,-1\n", {2, L"L1", 1}, 0},
        BadCase{"two headers in a row", "*H1,a\n*H2,b\nA,1,-1\n*OK\nA,1,-1\n", {2, L"H1", 1}, 1},
        BadCase{"alignment alone", "*L4\nA\n", {2, L"L4", 4}, 0},
        BadCase{"one number", "*L4\nA,1\n", {2, L"L4", 4}, 0},
        BadCase{"trailing comma", "*L2\nA,1,-1,\n", {2, L"L2", 2}, 0},
        BadCase{"negative first", "*L6\nA,-1,1\n", {2, L"L6", 6}, 0},
        BadCase{"text first", "*L7\nA,[\"GAS\",STANDARD],1\n", {2, L"L7", 7}, 0},
        BadCase{"quote then ]", "*T\nA,1,[\"GAS\"],-1\n", {2, L"T", 2}, 0},
        BadCase{"unquoted text", "*T\nA,1,[GAS,STANDARD],-1\n", {2, L"T", 5}, 0},
        BadCase{"empty text", "*T\nA,1,[\"\",STANDARD],-1\n", {2, L"T", 5}, 0},
        BadCase{"no closing ]", "*T\nA,1,[\"GAS\",STANDARD,S=1\n", {2, L"T", 2}, 0},
        BadCase{"key without =", "*T\nA,1,[\"GAS\",STANDARD,S],-1\n", {2, L"T", 2}, 0},
        BadCase{"unknown style", "*T\nA,1,[\"GAS\",NOSUCH],-1\n", {2, L"T", 3}, 0},
        BadCase{"comments count", ";; c\n\n;; c\n  \n*L1,x\n\t\nA,1,-1,\n", {7, L"L1", 2}, 0},
        // No infinity enters a drawing: a number beyond a double's range is invalid.
        BadCase{"number out of range", "*BIG\nA,1,-1e400\n*OK\nA,1,-1\n", {2, L"BIG", 2}, 1},
        BadCase{"key out of range", "*T\nA,1,[\"G\",STANDARD,S=1e999],-1\n", {2, L"T", 2}, 0},
        BadCase{"400 digits", kFourHundredDigits.c_str(), {2, L"D", 2}, 0}));

TEST_F(LoaderTest, FilesWithoutDefinitionsOrWithATrailingHeader) {
    Recorder rec;
    loader.SetNotifier(&rec);
    EXPECT_EQ(loader.Load(Write(";; only\nstray line\n\n").c_str()), 0);
    EXPECT_EQ(loader.GetNoLtypes(), 0u);
    EXPECT_EQ(loader.Load(Write("*A1\nA,0,-1\n*LAST,no pattern\n;; end\n").c_str()), 0);
    EXPECT_EQ(loader.GetNoLtypes(), 1u);  // a first element of zero is fine
    EXPECT_TRUE(rec.reports.empty());
    EXPECT_EQ(loader.Load((dir.path() + QStringLiteral("/missing.lin")).toStdWString().c_str()),
              -1);
    EXPECT_EQ(loader.GetNoLtypes(), 0u);
    EXPECT_EQ(loader.Load(dir.path().toStdWString().c_str()), -1);  // a folder
}

TEST_F(LoaderTest, HeaderSplitsAtTheFirstComma) {
    loader.Load(
        Write("*FENCE,Fence ,x, o\nA,1,-1\n*NODESC\nA,1,-1\n*,empty name\nA,1,-1\n").c_str());
    ASSERT_EQ(loader.GetNoLtypes(), 3u);
    EXPECT_EQ(loader.GetLtypeNo(0)->GetName(), L"FENCE");
    EXPECT_EQ(loader.GetLtypeNo(0)->GetDesc(), L"Fence ,x, o");
    EXPECT_EQ(loader.GetLtypeNo(1)->GetDesc(), L"");
    EXPECT_EQ(loader.GetLtypeNo(2)->GetName(), L"");
}

TEST_F(LoaderTest, TextElementKeysAndTheCharacterAfterTheBracket) {
    loader.Load(Write("*GAS\nA,1,[\"G\",STANDARD,s=2,r=90,Q=5,x=-1,y=0.5,S=3]25,-1\n"
                      "*W\nA,1,[\"W\",STANDARD],-2\n")
                    .c_str());
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
        loader.Load(Write(QByteArray("*N\nA,1,") + c.field.c_str() + "\n").c_str());
        ASSERT_EQ(loader.GetNoLtypes(), 1u) << c.field;
        EXPECT_EQ(loader.GetLtypeNo(0)->GetDash(1)->GetDouble(), c.value) << c.field;
        loader.Load(
            Write(QByteArray("*T\nA,1,[\"T\",STANDARD,X=") + c.field.c_str() + "],-1\n").c_str());
        ASSERT_EQ(loader.GetNoLtypes(), 1u) << c.field;
        EXPECT_EQ(loader.GetLtypeNo(0)->GetDash(1)->GetText()->GetPoint().x, c.value) << c.field;
    }
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
    loader.Load(Write("*A\nA,1,[\"X\",NOSUCH],-1,[\"Y\",STANDARD],-1\n"
                      "*B\nA,1,[\"X\",NOSUCH],-1,[\"Y\",standard],-1\n")
                    .c_str());
    EXPECT_EQ(rec.asked, (std::vector<std::wstring>{L"NOSUCH", L"NOSUCH"}));
    ASSERT_EQ(loader.GetNoLtypes(), 2u);
    EXPECT_EQ(loader.GetLtypeNo(1)->GetDash(3)->GetText()->GetStyle()->GetName(), L"STANDARD");
}

TEST_F(LoaderTest, UndefinedStylesComeFromTheNotifier) {
    Recorder rec(data.GetStyleTable().GetStyleStandard());
    loader.SetNotifier(&rec);
    loader.Load(Write("*T\nA,1,[\"X\",NOSUCH],-1\n*T\nA,2,-2\n").c_str());
    EXPECT_TRUE(rec.reports.empty());
    ASSERT_EQ(loader.GetNoLtypes(), 2u);  // names are not checked
    EXPECT_EQ(loader.GetLtypeNo(0)->GetDash(1)->GetText()->GetStyle()->GetName(), L"STANDARD");
}

TEST_F(LoaderTest, LongLinesCountAsSeveralPieces) {
    Recorder rec;
    loader.SetNotifier(&rec);
    QByteArray file = ";;" + QByteArray(5000, 'x') + "\n*L\nA,1,-1,\n";
    loader.Load(Write(file).c_str());
    ASSERT_EQ(rec.reports.size(), 1u);
    EXPECT_EQ(rec.reports[0].line, 4u);  // 4095 + 908 bytes: two pieces, then two lines
}

TEST_F(LoaderTest, SaveAndLoadGiveTheSameLineTypes) {
    loader.Load(
        Write("*DASH,Dash __ __\nA,0.5,-0.25,0\n"
              "*GAS,Gas ---GAS---\nA,0.5,[\"GAS\",STANDARD,S=0.1,R=30,X=-0.1,Y=-0.05],-0.3\n")
            .c_str());
    ASSERT_EQ(loader.GetNoLtypes(), 2u);
    const std::wstring out = dir.filePath(QStringLiteral("out.lin")).toStdWString();
    loader.Save(out.c_str());
    QFile saved(QString::fromStdWString(out));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    const QByteArray bytes = saved.readAll();
    EXPECT_TRUE(bytes.contains("*DASH,Dash __ __\r\nA,0.5,-0.25,0\r\n"));
    EXPECT_TRUE(
        bytes.contains("[\"GAS\",STANDARD,S=0.100000,R=30.000000,X=-0.100000,Y=-0.050000]"));
    CLtypeLoader again(&data.GetStyleTable(),
                       const_cast<veld::CObjectFactory*>(data.GetObjectFactory()));
    EXPECT_EQ(again.Load(out.c_str()), 0);
    ASSERT_EQ(again.GetNoLtypes(), 2u);
    for (unsigned i = 0; i < 2; ++i) {
        const veld::CLtype* a = loader.GetLtypeNo(i);
        const veld::CLtype* b = again.GetLtypeNo(i);
        EXPECT_EQ(a->GetName(), b->GetName());
        EXPECT_EQ(a->GetDesc(), b->GetDesc());
        ASSERT_EQ(a->GetNoDashes(), b->GetNoDashes());
        for (unsigned k = 0; k < a->GetNoDashes(); ++k) {
            EXPECT_EQ(a->GetDash(k)->IsDouble(), b->GetDash(k)->IsDouble());
            EXPECT_NEAR(a->GetDash(k)->GetDouble(), b->GetDash(k)->GetDouble(), 1e-6);
        }
    }
}

TEST_F(LoaderTest, HugeTextValuesReadBackTheSame) {
    // Six decimals of 1e300 take 307 characters; four such values would not
    // fit the element's 1024, and a cut value reads back as another number.
    loader.Load(
        Write("*BIG\nA,1,[\"B\",STANDARD,S=1e55,R=-2e300,X=-1e300,Y=123456789012345678],-1\n")
            .c_str());
    ASSERT_EQ(loader.GetNoLtypes(), 1u);
    const std::wstring out = dir.filePath(QStringLiteral("big.lin")).toStdWString();
    loader.Save(out.c_str());
    QFile saved(QString::fromStdWString(out));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    const QByteArray bytes = saved.readAll();
    const qsizetype open = bytes.indexOf('['), close = bytes.indexOf(']');
    EXPECT_LT(close - open, 1024) << bytes.constData();
    CLtypeLoader again(&data.GetStyleTable(),
                       const_cast<veld::CObjectFactory*>(data.GetObjectFactory()));
    ASSERT_EQ(again.Load(out.c_str()), 0);
    ASSERT_EQ(again.GetNoLtypes(), 1u);
    const veld::TEXT_3D* a = loader.GetLtypeNo(0)->GetDash(1)->GetText();
    const veld::TEXT_3D* b = again.GetLtypeNo(0)->GetDash(1)->GetText();
    EXPECT_EQ(b->GetContext().GetHeight(), a->GetContext().GetHeight());
    EXPECT_DOUBLE_EQ(b->GetContext().GetRotate(), a->GetContext().GetRotate());
    EXPECT_EQ(b->GetPoint().x, a->GetPoint().x);
    EXPECT_EQ(b->GetPoint().y, a->GetPoint().y);
}

TEST_F(LoaderTest, SaveStopsAtACharacterWithNoEightBitForm) {
    loader.Load(Write("*FIRST\nA,1,-1\n*SECOND\nA,2,-2\n").c_str());
    ASSERT_EQ(loader.GetNoLtypes(), 2u);
    const_cast<veld::CLtype*>(loader.GetLtypeNo(1))->SetDesc(L"\u20ac sign");
    const std::wstring out = dir.filePath(QStringLiteral("stop.lin")).toStdWString();
    loader.Save(out.c_str());
    QFile saved(QString::fromStdWString(out));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll(), QByteArray("*FIRST,\r\nA,1,-1\r\n"));
}

TEST_F(LoaderTest, EightBitCharactersRoundTrip) {
    loader.Load(Write("*CAF\xc9,Caf\xe9 \xb0\nA,1,-1\n").c_str());
    ASSERT_EQ(loader.GetNoLtypes(), 1u);
    EXPECT_EQ(loader.GetLtypeNo(0)->GetName(), L"CAF\u00c9");
    const std::wstring out = dir.filePath(QStringLiteral("latin.lin")).toStdWString();
    loader.Save(out.c_str());
    QFile saved(QString::fromStdWString(out));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_TRUE(saved.readAll().startsWith("*CAF\xc9,Caf\xe9 \xb0\r\n"));
}

TEST_F(LoaderTest, AReadFailureMidFileIsLeftToTheCaller) {
    // A directory opened as a stream fails on read; reach it through a path
    // that passes the open check: /proc/self/mem cannot be read at offset 0.
    struct stat st {};
    if (::stat("/proc/self/mem", &st) != 0)
        GTEST_SKIP() << "no /proc";
    EXPECT_THROW(loader.Load(L"/proc/self/mem"), veld::IFile::IFileIOError);
}

TEST(DefaultLibrary, LoadsWithoutRejectedDefinitions) {
    ulo::WString path;
    ASSERT_TRUE(ulo::FGetSpecialFolderPathAndSubDir(1, L"support\\veld.lin", path));
    veld::CData data;
    CLtypeLoader loader(&data.GetStyleTable(),
                        const_cast<veld::CObjectFactory*>(data.GetObjectFactory()));
    Recorder rec;
    loader.SetNotifier(&rec);
    ASSERT_EQ(loader.Load(path.c_str()), 0) << path.ToQString().toStdString();
    EXPECT_TRUE(rec.reports.empty());
    EXPECT_GE(loader.GetNoLtypes(), 30u);
}
