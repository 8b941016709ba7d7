#pragma once
// One declaration per dialog template (base id N; variants N..N+3).
#include "ulo/DialogTemplate.h"

namespace veld5::tpl {

extern const ulo::DialogTemplate k11000;  // Insert password
extern const ulo::DialogTemplate k11012;  // Enter... (number)
extern const ulo::DialogTemplate k11016;  // Enter... (text)
extern const ulo::DialogTemplate k11068;  // Enter... (rotation)

}  // namespace veld5::tpl
