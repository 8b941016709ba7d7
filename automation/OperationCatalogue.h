#pragma once
// The operation catalogue: every factory operation, and the library's two
// line type pickers, once. An entry holds what the programs around the
// library know of an operation: the demo's menu label, the arguments a
// script may give and their defaults, how the operation is called and its
// results reported, the arguments of random sessions, the settings its
// dialog changes without a command, and the steps before its pictures. The
// demo, veld-play, veld-sessions and the pictures are built from it; a new
// dialog is a new entry here (or, for a factory operation already listed,
// nothing: whether it is built is found by calling it).
//
// The catalogue reaches the library only through the factory interface and
// the pickers' function pointers, so that the demo, which loads the library
// at run time, uses it without linking the library.
#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <vector>

#include "linetypes/LtypePickers.h"
#include "veld/EntCollection.h"
#include "veld/HandleObjectVectorCollection.h"

class CVELD;
class CVELDView;
class IVELDDlgFactory;
class QWidget;

namespace catalogue {

struct Operation;

/// One call of an operation: where it runs, its arguments (NAME=VALUE texts)
/// and what it reports.
struct Call {
    IVELDDlgFactory* factory = nullptr;
    QWidget* parent = nullptr;
    CVELD* cad = nullptr;  ///< null: the operations on a drawing refuse to run
    CVELDView* view = nullptr;
    ShowDlgSelLtypeFn selLtype = nullptr;  ///< the library's pickers (null: it lacks them)
    ShowDlgLoadLtypeFn loadLtype = nullptr;
    QMap<QString, QString> args{};
    QJsonObject out{};  ///< out-parameters other than numbers
    /// Number out-parameters, kept exactly as they are ("-0", "0.1"): a JSON
    /// value would print -0 as 0.
    QMap<QString, double> numbers{};
    QString error{};  ///< why the operation did not run (an argument, no drawing)
    /// The values read with Number, Short, Int and Text (an argument or its
    /// default): an out-parameter of the same name keeps its value unless the
    /// dialog ended with OK.
    QMap<QString, double> numberInputs{};
    QMap<QString, QString> textInputs{};
    /// What the dialog made, for the host to take: the texts of the text
    /// dialog and the line types loaded (reported, and released with the call
    /// unless the host takes them).
    veld::CEntCollection texts{};
    veld::CHandleObjectVectorCollection ltypes{};

    /// The argument @p name as a number of the type, a flag or a text: the
    /// one given, else @p fallback, else the entry's default. One that is
    /// given but is not of the type (automation/ScriptNumbers.h) sets error,
    /// naming it and why. Reading an argument the entry does not declare is
    /// an error of the entry.
    double Number(const QString& name, std::optional<double> fallback = {});
    short Short(const QString& name, std::optional<short> fallback = {});
    int Int(const QString& name, std::optional<int> fallback = {});
    bool Flag(const QString& name);
    QString Text(const QString& name);
    /// False once an argument was refused: the operation returns without
    /// running its dialog. Read every argument before asking.
    bool ArgumentsOk() const { return error.isEmpty(); }
    /// The drawing and the view, for operations that work on them; null
    /// (with error set) when there is none or an argument was refused.
    CVELD* CAD();
    CVELDView* View();

    const Operation* operation = nullptr;  ///< set by Operation::Run
    /// Bit i: the entry's argument i was read.
    std::uint64_t read = 0;
    /// Whether every argument the entry declares was read.
    bool ReadEveryArgument() const;

private:
    template <class T, class Reader>
    T Read(const QString& name, std::optional<T> fallback, Reader reader);
};

/// NAME and VALUE as a script writes them (a VALUE may hold blanks: a
/// script quotes it).
struct Argument {
    const char* name;
    const char* value;  ///< null: the default depends on another argument
};

/// One picture of a dialog: DIR/<file>-<layout>.png, taken after @p steps
/// (veld-play steps, one a line) on the dialog as it opens with the entry's
/// picture arguments.
struct Picture {
    const char* file;
    QString steps;
};

struct Operation {
    const char* name;   ///< the factory's name (the pickers': their exported names)
    const char* label;  ///< the demo's menu entry
    std::vector<Argument> arguments = {};
    /// Reads the arguments, calls the operation, fills the out-parameters;
    /// returns the operation's result (null when it has none).
    QJsonValue (*run)(Call& c);
    /// The arguments of a random session; "*" stands for 0 or 1 at random.
    std::vector<Argument> randomArguments = {};
    /// Paths into the drawing's dump ("settings/osnapOn") that the dialog,
    /// ending with OK, changes without a command: settings of the program,
    /// not of the drawing's history.
    std::vector<const char*> settings = {};
    std::vector<Argument> pictureArguments = {};
    /// Empty: one picture, named after the operation, as the dialog opens.
    std::vector<Picture> pictures = {};

    QJsonValue Run(Call& c) const;
    /// Why @p args cannot be given to this operation (a name it does not
    /// take, with the names it takes); empty when they can.
    QString Refuse(const QMap<QString, QString>& args) const;
    std::vector<Picture> Pictures() const;
};

/// Every operation, in the order of the demo's menu.
const std::vector<Operation>& Operations();
/// The operation called @p name; null when there is none.
const Operation* Find(const QString& name);
/// The operations' names, in the order of Operations().
QStringList Names();

}  // namespace catalogue
