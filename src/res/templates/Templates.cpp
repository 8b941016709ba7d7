#include "Templates.h"

#include "../Resources.h"

namespace veld5 {

std::span<const ulo::DialogTemplate> DialogTemplates() {
    static const ulo::DialogTemplate all[] = {
        tpl::k11000,
        tpl::k11012,
        tpl::k11016,
        tpl::k11068,
    };
    return all;
}

}  // namespace veld5
