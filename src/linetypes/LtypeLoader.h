#pragma once
// veld::CLtypeLoader reads line type library files (".lin") into new line
// types that belong to no drawing yet, and writes line types back.
//
// Files are 8-bit text read and written as ISO-8859-1: every byte is one
// character and back. A character above 255 cannot be written: Save stops at
// that line. Header lines and text elements longer than 1023 characters are
// cut to 1023 characters when saved.
// A public header: it names the host's types without including the host's
// headers, so that a host compiles against it with its own.
#include <memory>

#include "factory/Export.h"

namespace ulo {
class WString;
}

namespace veld {

class CLtype;
class CStyle;
class CStyleTable;
class CObjectFactory;

class VELD5_EXPORT CLtypeLoader {
public:
    /// Receives the definitions that a load rejects.
    class IErrorNotifier {
    public:
        virtual ~IErrorNotifier() = default;
        virtual void NotifyLoadError(const ulo::WString& fileName, unsigned lineNo,
                                     const ulo::WString& ltypeName, int errorCode) = 0;
        /// The style for a text element whose style the table lacks, or null
        /// to reject the definition.
        virtual CStyle* GetUndefinedStyle(const ulo::WString& styleName) = 0;
    };

    CLtypeLoader(const CStyleTable* styles, CObjectFactory* factory);
    ~CLtypeLoader();
    CLtypeLoader(const CLtypeLoader&) = delete;
    CLtypeLoader& operator=(const CLtypeLoader&) = delete;

    /// Replaces the held line types with the file's definitions. -1 when the
    /// file cannot be opened, else 0. A read failure other than the end of
    /// the file raises veld::IFile::IFileIOError (the line types read so far
    /// stay).
    int Load(const wchar_t* path);
    /// Writes every held line type to @p path, replacing it. Failures are
    /// silent; the lines written before a failure stay.
    void Save(const wchar_t* path);
    unsigned GetNoLtypes() const;
    const CLtype* GetLtypeNo(unsigned index);
    void Add(CLtype* ltype);
    void Remove(CLtype* ltype);
    void SetNotifier(IErrorNotifier* notifier);

private:
    // One pointer: the exported layout never changes with the private state.
    struct Private;
    const std::unique_ptr<Private> d;
};

}  // namespace veld
