#include "LauncherListener.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

LauncherListener::LauncherListener(QObject* parent) : QObject(parent) {
    const char* tmp = std::getenv("TMPDIR");
    path_ = std::string((tmp && *tmp) ? tmp : "/tmp") + "/Avvio_Talpa";
    sockaddr_un addr{};
    if (path_.size() >= sizeof addr.sun_path || ::pipe(wake_) != 0)
        return;
    addr.sun_family = AF_UNIX;
    std::memcpy(addr.sun_path, path_.c_str(), path_.size() + 1);
    fd_ = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ::unlink(path_.c_str());  // left over by a launcher that did not end cleanly
    if (fd_ < 0 || ::bind(fd_, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0 ||
        ::listen(fd_, 8) != 0) {
        if (fd_ >= 0)
            ::close(fd_);
        fd_ = -1;
        return;
    }
    thread_ = std::thread([this] { Serve(); });
}

LauncherListener::~LauncherListener() {
    if (thread_.joinable()) {
        const char stop = 0;
        [[maybe_unused]] const auto n = ::write(wake_[1], &stop, 1);
        thread_.join();
    }
    if (fd_ >= 0) {
        ::close(fd_);
        ::unlink(path_.c_str());
    }
    for (int fd : wake_)
        if (fd >= 0)
            ::close(fd);
}

void LauncherListener::Serve() {
    for (;;) {
        pollfd fds[2] = {{fd_, POLLIN, 0}, {wake_[0], POLLIN, 0}};
        if (::poll(fds, 2, -1) < 0 || (fds[1].revents & POLLIN))
            return;
        const int client = ::accept(fd_, nullptr, nullptr);
        if (client < 0)
            continue;
        std::uint32_t msg[3] = {0, 0, 0};
        pollfd in{client, POLLIN, 0};
        // A module that connects and says nothing is not waited for long.
        const bool got =
            ::poll(&in, 1, 500) == 1 && ::recv(client, msg, sizeof msg, MSG_WAITALL) == sizeof msg;
        const std::uint32_t answer = 0;
        ::send(client, &answer, sizeof answer, MSG_NOSIGNAL);
        ::close(client);
        if (got)
            Q_EMIT Notified(msg[0], msg[1], msg[2]);
    }
}
