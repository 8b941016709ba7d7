#pragma once
// One random user session on one factory operation, with the promises every
// operation keeps checked afterwards on the host stand-in with the sample
// drawing:
//   - nothing failed while the steps ran, and the session ended;
//   - at most one command was added to the undo list; when one was, Undo
//     gives the state before the call and Redo the state after it;
//   - when no command was added, the state is as before, unless the
//     operation is one that changes settings without a command and its
//     dialog ended with OK (the table in SessionRunner.cpp says which, and why);
//   - a dialog that did not end with OK leaves every out-parameter as it was;
//   - no NaN or infinity anywhere in the state or the out-parameters.
// A failure carries the veld-play script that replays the session.
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

class IVELDDlgFactory;

namespace sessions {

struct SessionResult {
    bool ok = true;
    bool dialogShown = false;  ///< false: the operation showed nothing (not built)
    QString failure;
    QString script;        ///< replays the session: veld-play --sample SCRIPT
    QJsonObject returned;  ///< what the operation returned, as veld-play prints it
};

/// The seed of session @p n of the run with @p seed: the two mixed
/// (splitmix64), so that runs with different seeds, however near, share no
/// sessions, as they would with seed + n.
std::uint64_t SessionSeed(std::uint64_t seed, std::uint64_t n);

/// Runs one session of @p operation in @p layout (0..3) with @p seed. The
/// script is headed by the veld-sessions command that runs it again.
SessionResult RunSession(IVELDDlgFactory* factory, const QString& operation, int layout,
                         std::uint64_t seed, const QStringList& corpus);

/// The factory operations whose dialog shows, found by calling each one once
/// with a user who closes whatever appears.
QStringList BuiltOperations(IVELDDlgFactory* factory);

/// Every factory operation, built or not.
QStringList AllOperations();

}  // namespace sessions
