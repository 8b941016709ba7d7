// veld-lin as its users run it, in a decimal-comma locale where the machine
// has one: files keep the "C" notation and standard output holds only what
// the command promises.
#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <clocale>
#include <string>

#include <sys/stat.h>

namespace {

struct ToolRun {
    int status = -1;
    QByteArray out, err;
};

/// The locale the tool runs in: Italian when the machine has it.
QString commaLocale() {
    const std::string previous = std::setlocale(LC_ALL, nullptr);
    const bool italian = std::setlocale(LC_ALL, "it_IT.UTF-8") != nullptr;
    std::setlocale(LC_ALL, previous.c_str());
    return italian ? QStringLiteral("it_IT.UTF-8") : QString();
}

ToolRun veldLin(const QStringList& args, int timeoutMs = 60000) {
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    if (const QString locale = commaLocale(); !locale.isEmpty())
        env.insert(QStringLiteral("LC_ALL"), locale);
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(VELD_LIN_EXE), args);
    ToolRun r;
    if (!p.waitForFinished(timeoutMs))
        return r;  // the process is killed with p
    r.status = p.exitCode();
    r.out = p.readAllStandardOutput();
    r.err = p.readAllStandardError();
    return r;
}

QByteArray readAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

/// Writes @p bytes to @p path, resized to @p size when given (the rest a hole).
bool makeFile(const QString& path, const QByteArray& bytes, qint64 size = -1) {
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size() &&
           (size < 0 || f.resize(size));
}

}  // namespace

TEST(VeldLin, ConvertWritesTheCNotationAndRoundTripsExactly) {
    QTemporaryDir dir;
    const QString in = dir.filePath(QStringLiteral("in.lin"));
    const QString once = dir.filePath(QStringLiteral("once.lin"));
    const QString twice = dir.filePath(QStringLiteral("twice.lin"));
    ASSERT_TRUE(
        makeFile(in,
                 "*D,dashes, dots\nA,1.5,-0.25, -0.25,+0.5,0\n"
                 "*T\nA,1,[\"G\",STANDARD,S=2.5,R=90,X=-1,Y=1e55],-1\n"
                 "*X\nA,4e-320,5e-324,[\"G\",STANDARD,S=4e-320,R=4e-320,X=2.2e-308,Y=0.1],1e-7,"
                 "0.1000000000000001\n"));
    ASSERT_EQ(veldLin({QStringLiteral("convert"), in, once}).status, 0);
    // Six decimals where they read back as the same number, else the
    // shortest text that does.
    EXPECT_EQ(readAll(once),
              QByteArray("*D,dashes, dots\r\nA,1.5,-0.25,-0.25,0.5,0\r\n*T,\r\n"
                         "A,1,[\"G\",STANDARD,S=2.500000,R=90.000000,X=-1.000000,Y=1e+55],-1\r\n"
                         "*X,\r\nA,4e-320,5e-324,[\"G\",STANDARD,S=4e-320,R=4e-320,X=2.2e-308,"
                         "Y=0.100000],1e-07,0.1000000000000001\r\n"));
    ASSERT_EQ(veldLin({QStringLiteral("convert"), once, twice}).status, 0);
    EXPECT_EQ(readAll(twice), readAll(once));
}

TEST(VeldLin, ListingIsAloneOnStandardOutput) {
    QTemporaryDir dir;
    const QString in = dir.filePath(QStringLiteral("mixed.lin"));
    ASSERT_TRUE(makeFile(in, "*BAD\nA,-1,1\n*GOOD,fine\nA,0.5,-0.5\n"));
    const ToolRun r = veldLin({QStringLiteral("list"), in, QStringLiteral("--json")});
    EXPECT_EQ(r.status, 1);
    QJsonParseError error{};
    const QJsonDocument doc = QJsonDocument::fromJson(r.out, &error);
    ASSERT_EQ(error.error, QJsonParseError::NoError) << r.out.constData();
    ASSERT_EQ(doc.array().size(), 1);
    EXPECT_EQ(doc.array().at(0)[QStringLiteral("elements")].toArray().at(0).toDouble(), 0.5);
    EXPECT_TRUE(r.err.contains("Definition of BAD is not correct on line 2")) << r.err.constData();
}

TEST(VeldLin, ALibraryThatIsNotARegularFileOrIsTooLargeIsNamedWithTheReason) {
    QTemporaryDir dir;
    const QString fifo = dir.filePath(QStringLiteral("fifo.lin"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const QString big = dir.filePath(QStringLiteral("big.lin"));
    ASSERT_TRUE(makeFile(big, "*OK\nA,1,-1\n", (qint64{64} << 20) + 1));
    const struct {
        QString file;
        const char* reason;
    } cases[] = {
        {fifo, "not a regular file"},
        {big, "larger than 67108864 bytes"},
        // A regular file that fails part way: the tool's own memory, unreadable at 0.
        {QStringLiteral("/proc/self/mem"), "read error"},
    };
    for (const auto& c : cases) {
        const ToolRun r = veldLin({QStringLiteral("check"), c.file}, 20000);
        EXPECT_EQ(r.status, 2) << c.file.toStdString();
        EXPECT_EQ(r.err, "veld-lin: " + c.file.toUtf8() + ": " + c.reason + "\n");
    }
}

TEST(VeldLin, ConvertNamesTheDefinitionsItLeavesOut) {
    // A style the drawing lacks is written as STANDARD: 7 characters more for
    // each of these 500 text elements, past the 4095 a line may hold.
    QTemporaryDir dir;
    const QString in = dir.filePath(QStringLiteral("in.lin"));
    const QString out = dir.filePath(QStringLiteral("out.lin"));
    ASSERT_TRUE(
        makeFile(in, "*GROWS\nA,1" + QByteArray(",[\"g\",X]").repeated(500) + "\n*KEEP\nA,1,-1\n"));
    const ToolRun r = veldLin({QStringLiteral("convert"), in, out});
    EXPECT_EQ(r.status, 3);
    EXPECT_EQ(r.err, "veld-lin: " + out.toUtf8() +
                         ": GROWS not saved: a line would be longer than 4095 characters\n");
    EXPECT_EQ(readAll(out), QByteArray("*KEEP,\r\nA,1,-1\r\n"));
}
