#pragma once
// The two line type pickers, for hosts and tools that run them on their own:
// the selection of one of the drawing's line types, and the loading of new
// line types from a line type library (".lin"). Both run a modal dialog to
// its end on the calling (user-interface) thread and change nothing in the
// drawing.
//
// The functions have C names, so that a host that loads the library at run
// time finds them as it finds CreateFactory (the *Fn types below).
//
// A public header: it names the host's types without including the host's
// headers, so that a host compiles against it with its own.
#include "factory/Export.h"

class QWidget;
class CVELD;
namespace veld {
class CLtype;
class CHandleObjectVectorCollection;
}  // namespace veld

extern "C" {

/// Lets the user pick one of the line types of @p cad's drawing (ByBlock and
/// ByLayer are not offered) from a list that draws each pattern; @p preset
/// (may be null) is selected and marked current when the list opens.
///
/// Returns the code the dialog ended with: 1 (OK) or 2 (Cancel); -1 when
/// @p cad or @p chosen is null or the dialog cannot be built. @p chosen
/// receives the line type picked with OK, or null: after Cancel, with no row
/// selected, or when the selected line type depends on an external reference
/// (the user is told it cannot be made current; the code is still 1). The
/// line type belongs to the drawing's table: no reference is added for the
/// caller.
VELD5_EXPORT int ShowDlgSelLtype(QWidget* parent, CVELD* cad, veld::CLtype* preset,
                                 veld::CLtype** chosen);

/// Lets the user pick definitions of a line type library, starting with
/// "support\veld.lin" of the host's support folder; the user may open another
/// file. Each definition the file rejects is shown in a message box.
///
/// Returns the code the dialog ended with: 1 (OK) or 2 (Cancel); -1 when
/// @p cad or @p created is null or the dialog cannot be built. On OK the new
/// line types are appended to @p created, one for each checked definition
/// whose name (letter case ignored) the drawing's table lacks, in the order
/// listed; nothing is appended otherwise. They belong to no table yet: the
/// collection holds the one reference on each, and the caller adds them to
/// the drawing's line type table (which takes its own) or lets the
/// collection release them.
VELD5_EXPORT int ShowDlgLoadLtype(CVELD* cad, veld::CHandleObjectVectorCollection* created);

}  // extern "C"

using ShowDlgSelLtypeFn = int (*)(QWidget*, CVELD*, veld::CLtype*, veld::CLtype**);
using ShowDlgLoadLtypeFn = int (*)(CVELD*, veld::CHandleObjectVectorCollection*);
