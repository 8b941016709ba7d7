#include "Resources.h"

#include "templates/Templates.h"

namespace veld5 {

const ulo::CResourceModule& ModuleResources() {
    static const ulo::CResourceModule module("veld5DlgCE", StringTable(), DialogTemplates());
    return module;
}

}  // namespace veld5
