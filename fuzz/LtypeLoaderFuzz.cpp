// libFuzzer target: any bytes as a line type library file.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <string>

#include "linetypes/LtypeLoader.h"
#include "veld/Data.h"

namespace {
class AnyStyle : public veld::CLtypeLoader::IErrorNotifier {
public:
    explicit AnyStyle(veld::CData& data) : data_(data) {}
    void NotifyLoadError(const ulo::WString&, unsigned, const ulo::WString&, int code) override {
        if (code < 1 || code > 7)
            __builtin_trap();
    }
    veld::CStyle* GetUndefinedStyle(const ulo::WString& name) override {
        // Accept every other unknown style, so both paths are taken.
        return (name.Length() % 2) ? veld::GetStyleStandard(&data_) : nullptr;
    }

private:
    veld::CData& data_;
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static veld::CData data;
    static const int fd = memfd_create("lin", 0);
    static const std::wstring path = L"/proc/self/fd/" + std::to_wstring(fd);
    if (ftruncate(fd, 0) != 0 || pwrite(fd, bytes, size, 0) != static_cast<ssize_t>(size))
        return 0;
    veld::CLtypeLoader loader(&data.GetStyleTable(),
                              const_cast<veld::CObjectFactory*>(data.GetObjectFactory()));
    AnyStyle notifier(data);
    loader.SetNotifier(&notifier);
    if (loader.Load(path.c_str()) == 0 && loader.GetNoLtypes() > 0) {
        static const int out = memfd_create("lin-out", 0);
        static const std::wstring outPath = L"/proc/self/fd/" + std::to_wstring(out);
        loader.Save(outPath.c_str());
    }
    return 0;
}
