// The start-up notification reaches a launcher listening on a real local
// socket, and never blocks when the launcher is absent or hung.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <thread>
#include <vector>

#include "factory/Module.h"

namespace {

class Launcher {
public:
    enum class Mode { Answer, Hang };
    Launcher(const QString& dir, const char* name, Mode mode) : mode_(mode) {
        path_ = (dir + QLatin1Char('/') + QLatin1String(name)).toStdString();
        fd_ = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un addr{};
        addr.sun_family = AF_UNIX;
        std::strncpy(addr.sun_path, path_.c_str(), sizeof addr.sun_path - 1);
        EXPECT_EQ(::bind(fd_, reinterpret_cast<sockaddr*>(&addr), sizeof addr), 0);
        EXPECT_EQ(::listen(fd_, 4), 0);
        if (mode_ == Mode::Answer)
            thread_ = std::thread([this] { Serve(); });
    }
    ~Launcher() {
        if (thread_.joinable())
            thread_.join();
        ::close(fd_);
        ::unlink(path_.c_str());
    }
    std::uint32_t message[3] = {0, 0, 0};
    std::atomic<bool> received{false};

private:
    void Serve() {
        const int c = ::accept(fd_, nullptr, nullptr);
        if (c < 0)
            return;
        if (::recv(c, message, sizeof message, MSG_WAITALL) == sizeof message)
            received = true;
        const std::uint32_t answer = 0;
        ::send(c, &answer, sizeof answer, MSG_NOSIGNAL);
        ::close(c);
    }
    Mode mode_;
    std::string path_;
    int fd_ = -1;
    std::thread thread_;
};

class LauncherNotification : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        saved = qgetenv("TMPDIR");
        qputenv("TMPDIR", dir.path().toLocal8Bit());
    }
    void TearDown() override { qputenv("TMPDIR", saved); }
    QTemporaryDir dir;
    QByteArray saved;
};

}  // namespace

TEST_F(LauncherNotification, ReachesTheLauncherOrElseTheCrashLauncherWithMessage1165) {
    for (const char* name : {"Avvio_Talpa", "Avvio_TalpaCrash"}) {
        Launcher launcher(dir.path(), name, Launcher::Mode::Answer);
        EXPECT_TRUE(veld5::NotifyLauncher(2000)) << name;
        ASSERT_TRUE(launcher.received) << name;
        EXPECT_EQ(std::vector<std::uint32_t>(launcher.message, launcher.message + 3),
                  (std::vector<std::uint32_t>{1165, 1, 0}))
            << name;
    }
}

TEST_F(LauncherNotification, WithoutLauncherNothingIsSent) {
    EXPECT_FALSE(veld5::NotifyLauncher(2000));
}

TEST_F(LauncherNotification, AHungLauncherDoesNotBlockStartUp) {
    Launcher launcher(dir.path(), "Avvio_Talpa", Launcher::Mode::Hang);
    const auto start = std::chrono::steady_clock::now();
    veld5::NotifyLauncher(200);
    const auto elapsed = std::chrono::steady_clock::now() - start;
    // Bounded by the timeout; the margin only guards against a hang.
    EXPECT_LT(elapsed, std::chrono::seconds(10));
}
