#pragma once
// One random user session on one factory operation, with the promises every
// operation keeps checked afterwards on the host stand-in with the sample
// drawing:
//   - nothing failed while the steps ran, and the session ended;
//   - at most one command was added to the undo list; when one was, Undo
//     gives the state before the call and Redo the state after it;
//   - when no command was added, the state is as before, but for the
//     settings the catalogue says the operation changes without a command,
//     when its dialog ended with OK;
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

/// The operations whose dialog shows (veldplay::BuiltOperations on the
/// sample drawing).
QStringList BuiltOperations(IVELDDlgFactory* factory);

/// Every operation of the catalogue, built or not.
QStringList AllOperations();

}  // namespace sessions
