#pragma once
// One declaration per dialog template (base id N; variants N..N+3).
#include "ulo/DialogTemplate.h"

namespace veld5::tpl {

extern const ulo::DialogTemplate k11000;  // Insert password
extern const ulo::DialogTemplate k11012;  // Enter... (number)
extern const ulo::DialogTemplate k11016;  // Enter... (text)
extern const ulo::DialogTemplate k11068;  // Enter... (rotation)
extern const ulo::DialogTemplate k11004;
extern const ulo::DialogTemplate k11008;
extern const ulo::DialogTemplate k11020;
extern const ulo::DialogTemplate k11024;
extern const ulo::DialogTemplate k11028;
extern const ulo::DialogTemplate k11032;
extern const ulo::DialogTemplate k11036;
extern const ulo::DialogTemplate k11040;
extern const ulo::DialogTemplate k11044;
extern const ulo::DialogTemplate k11048;
extern const ulo::DialogTemplate k11052;
extern const ulo::DialogTemplate k11056;
extern const ulo::DialogTemplate k11060;
extern const ulo::DialogTemplate k11064;
extern const ulo::DialogTemplate k11072;
extern const ulo::DialogTemplate k11076;
extern const ulo::DialogTemplate k11080;
extern const ulo::DialogTemplate k11084;
extern const ulo::DialogTemplate k11088;
extern const ulo::DialogTemplate k11092;

}  // namespace veld5::tpl
