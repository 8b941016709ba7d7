#pragma once
// The library's own resources: string table and dialog templates.
#include <span>

#include "ulo/ResourceModule.h"

namespace veld5 {

/// String table, sorted by id.
std::span<const ulo::StringEntry> StringTable();
/// Every dialog template of the library.
std::span<const ulo::DialogTemplate> DialogTemplates();
/// The resource module made of both.
const ulo::CResourceModule& ModuleResources();

}  // namespace veld5
