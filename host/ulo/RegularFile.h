#pragma once
// Opening a file to read it whole. Only a regular file (links followed) of at
// most a given size is opened: a path naming a folder, a device, a FIFO or a
// huge file by mistake must neither hang its reader nor take the memory. What
// is judged is the opened descriptor, so a name pointed elsewhere in between
// changes nothing, and opening a FIFO does not wait for a writer.
#include <QString>

namespace ulo {

enum class OpenFailure {
    None,
    CannotOpen,      ///< missing or not permitted: errno says why
    IsFolder,        ///< a folder
    NotRegularFile,  ///< a device, FIFO or socket
    TooLarge,        ///< more than the bytes allowed
};

/// A descriptor of @p path open for blocking reads, or -1 with @p failure
/// set. The caller closes it (QFile::open with AutoCloseHandle, fdopen).
int OpenRegularFile(const QString& path, qint64 maxBytes, OpenFailure& failure);

}  // namespace ulo
