#pragma once
// Special folders of the host. Folder 1 is the host's support folder (line
// type libraries, bitmaps). It is, in this order: the folder named by the
// environment variable VELD_SUPPORT_DIR; the folder set with
// SetSupportFolder; "<application dir>/../share/veld/support"; and
// "<application dir>/support". Sub-paths may use '\' or '/', and a leading
// "support\" component names the support folder itself.
#include "WString.h"

namespace ulo {

constexpr int kFolderSupport = 1;

/// Full path of @p subPath inside folder @p folder. Returns false (and an
/// empty @p path) for an unknown folder id; the file itself need not exist.
bool FGetSpecialFolderPathAndSubDir(int folder, const WString& subPath, WString& path);
/// Overrides the support folder (empty restores the default search).
void SetSupportFolder(const WString& folder);
/// The folder part of @p path, with its trailing separator ("/a/b/c.lin" -> "/a/b/").
WString EstraiIlPathFile(const WString& path);

}  // namespace ulo
