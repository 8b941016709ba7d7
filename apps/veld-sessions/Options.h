#pragma once
// The command line of veld-sessions.
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

namespace sessions {

struct Options {
    unsigned sessions = 100;
    std::uint64_t seed = 1;
    /// Runs the one session of this seed (as a failure prints it) instead.
    std::optional<std::uint64_t> sessionSeed;
    QStringList operations;  ///< empty: every built operation
    int layout = -1;         ///< -1: the four in turn
    bool print = false;      ///< every session's script, not only the failures'
};

enum class Command { Run, Help, Wrong };

/// Reads @p args (the program's name left out); an operation named must be
/// one of @p known. Wrong comes with @p error saying what is wrong.
Command ParseOptions(const QStringList& args, const QStringList& known, Options& options,
                     QString& error);

/// What --help prints.
QString Usage();

}  // namespace sessions
