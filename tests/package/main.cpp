// Creates a factory and a line type loader through the installed headers;
// exit status 0 when both work.
#include <veld5DlgCE/factory/IVELDDlgFactory.h>
#include <veld5DlgCE/linetypes/LtypeLoader.h>
#include <veld5DlgCE/linetypes/LtypePickers.h>

#include <cstdio>
#include <fstream>

int main() {
    IVELDDlgFactory* factory = CreateFactory();
    veld::CLtypeLoader loader(nullptr, nullptr);
    const bool library = std::ifstream(VELD_SUPPORT "/veld.lin").good();
    // The pickers refuse to run without a drawing rather than show a dialog.
    const bool pickers = ShowDlgSelLtype(nullptr, nullptr, nullptr, nullptr) == -1 &&
                         ShowDlgLoadLtype(nullptr, nullptr) == -1;
    const bool ok = factory && pickers && loader.Load(L"/nonexistent/none.lin") == -1 &&
                    loader.GetNoLtypes() == 0 && library;
    std::printf("factory %s, loader %s, support %s\n", factory ? "created" : "missing",
                loader.GetNoLtypes() == 0 ? "works" : "broken", library ? "found" : "missing");
    return ok ? 0 : 1;
}
