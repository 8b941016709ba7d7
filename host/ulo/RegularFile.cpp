#include "RegularFile.h"

#include <QFile>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#if defined(Q_OS_WIN)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace ulo {

int OpenRegularFile(const QString& path, qint64 maxBytes, OpenFailure& failure) {
    failure = OpenFailure::CannotOpen;
#if defined(Q_OS_WIN)
    const int fd = ::_wopen(reinterpret_cast<const wchar_t*>(path.utf16()), _O_RDONLY | _O_BINARY);
#else
    const int fd =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
#endif
    if (fd < 0)
        return -1;
    struct stat st {};
    if (::fstat(fd, &st) != 0)
        failure = OpenFailure::CannotOpen;
    else if (S_ISDIR(st.st_mode))
        failure = OpenFailure::IsFolder;
    else if (!S_ISREG(st.st_mode))
        failure = OpenFailure::NotRegularFile;
    else if (st.st_size > maxBytes)
        failure = OpenFailure::TooLarge;
    else
        failure = OpenFailure::None;
#if !defined(Q_OS_WIN)
    const int flags = ::fcntl(fd, F_GETFL);
    if (failure == OpenFailure::None &&
        (flags < 0 || ::fcntl(fd, F_SETFL, flags & ~O_NONBLOCK) != 0))
        failure = OpenFailure::CannotOpen;
#endif
    if (failure == OpenFailure::None)
        return fd;
    const int saved = errno;
    ::close(fd);
    errno = saved;
    return -1;
}

}  // namespace ulo
