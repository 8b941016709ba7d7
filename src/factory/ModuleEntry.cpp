// Module start-up: runs when the library is loaded, before the host calls
// CreateFactory. It never fails: a missing or hung launcher only skips the
// notification.
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "Module.h"
#include "res/Resources.h"

namespace veld5 {

GModule& Module() {
    static GModule module;
    return module;
}

ulo::CStringLoader& ModuleStringLoader() {
    static ulo::CStringLoader loader;
    return loader;
}

namespace {

std::string socketPath(const char* name) {
    const char* tmp = std::getenv("TMPDIR");
    std::string dir = (tmp && *tmp) ? tmp : "/tmp";
    if (dir.back() != '/')
        dir += '/';
    return dir + name;
}

int remainingMs(std::chrono::steady_clock::time_point deadline) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        deadline - std::chrono::steady_clock::now());
    return left.count() > 0 ? static_cast<int>(left.count()) : 0;
}

/// Sends the notification to one socket; false when nobody listens there.
bool sendTo(const std::string& path, int timeoutMs) {
    sockaddr_un addr{};
    if (path.size() >= sizeof addr.sun_path)
        return false;
    addr.sun_family = AF_UNIX;
    std::memcpy(addr.sun_path, path.c_str(), path.size() + 1);

    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (fd < 0)
        return false;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    bool delivered = false;
    if (::connect(fd, reinterpret_cast<const sockaddr*>(&addr), sizeof addr) == 0 ||
        errno == EINPROGRESS || errno == EAGAIN) {
        pollfd p{fd, POLLOUT, 0};
        if (::poll(&p, 1, remainingMs(deadline)) == 1 && (p.revents & POLLOUT)) {
            const std::uint32_t msg[3] = {kLauncherMessage, 1u, 0u};  // little-endian hosts
            if (::send(fd, msg, sizeof msg, MSG_NOSIGNAL) == sizeof msg) {
                delivered = true;
                // Wait for the answer (its value is not used), but never longer
                // than the deadline: a hung launcher must not block the host.
                pollfd in{fd, POLLIN, 0};
                if (::poll(&in, 1, remainingMs(deadline)) == 1) {
                    std::uint32_t answer = 0;
                    [[maybe_unused]] const auto n = ::recv(fd, &answer, sizeof answer, 0);
                }
            }
        }
    }
    ::close(fd);
    return delivered;
}

}  // namespace

bool NotifyLauncher(int timeoutMs) {
    return sendTo(socketPath("Avvio_Talpa"), timeoutMs) ||
           sendTo(socketPath("Avvio_TalpaCrash"), timeoutMs);
}

namespace {
struct ModuleStartup {
    ModuleStartup() {
        NotifyLauncher();
        Module().init(&ModuleResources());
        ModuleStringLoader().Init(Module());
    }
};
const ModuleStartup startup;
}  // namespace

}  // namespace veld5
