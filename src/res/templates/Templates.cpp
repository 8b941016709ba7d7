#include "Templates.h"

#include "../Resources.h"

namespace veld5 {

std::span<const ulo::DialogTemplate> DialogTemplates() {
    static const ulo::DialogTemplate all[] = {
        tpl::k11000, tpl::k11004, tpl::k11008, tpl::k11012, tpl::k11016, tpl::k11020,
        tpl::k11024, tpl::k11028, tpl::k11032, tpl::k11036, tpl::k11040, tpl::k11044,
        tpl::k11048, tpl::k11052, tpl::k11056, tpl::k11060, tpl::k11064, tpl::k11068,
        tpl::k11072, tpl::k11076, tpl::k11080, tpl::k11084, tpl::k11088, tpl::k11092,
    };
    return all;
}

}  // namespace veld5
