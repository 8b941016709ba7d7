#pragma once
// veld::CLtypeLoader reads line type library files (".lin") into new line
// types that belong to no drawing yet, and writes line types back.
//
// Files are 8-bit text read and written as ISO-8859-1: every byte is one
// character and back. A character above 255 cannot be written: Save stops at
// that line.
//
// Load reads only regular files of at most kMaxFileSize bytes. Save writes
// only what Load reads back as the same line type: no line longer than
// kMaxLineLength, names, descriptions and texts in full, every number in a
// text that reads back as the very same double (a text element's rotation,
// kept in radians and written in degrees, does so whenever it was read from
// a file). A held line type that cannot be written so is left out of the
// file, and GetNoUnsaved() / GetUnsavedNo() name it.
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

    /// The largest library Load reads, in bytes (64 MiB). Libraries hold some
    /// kilobytes; a path that names a device, a pipe or a huge file by mistake
    /// must neither hang a dialog nor take the memory. A file of more bytes,
    /// or one that grows past the limit while it is read, is refused whole,
    /// as a file that cannot be opened is.
    static constexpr unsigned long long kMaxFileSize = 64ull << 20;

    /// The longest line Load reads as one line, in characters (its line end
    /// not counted); Save writes no longer line.
    static constexpr unsigned kMaxLineLength = 4095;

    /// Why the last Load found no library to read.
    enum class LoadFailure {
        None,            ///< the file was read (or Load has not run)
        CannotOpen,      ///< missing, or no permission: Load returned -1
        NotRegularFile,  ///< a folder, pipe, device or socket: Load returned -1
        TooLarge,        ///< more than kMaxFileSize bytes: Load returned -1
        ReadError,       ///< a read failed part way: Load raised IFile::IFileIOError
    };

    /// Why the last Save left a held line type out of its file.
    enum class SaveRefusal {
        LineTooLong,     ///< a line longer than kMaxLineLength
        NotReadable,     ///< Load would reject it or read it otherwise (a name with
                         ///< "," or a line end, a description ending in a blank, a
                         ///< text with ",", fewer than two elements, a negative or
                         ///< text first element, a value that is not a finite number)
        NoEightBitForm,  ///< a character above 255: Save stopped at this line type
        NotWritten,      ///< the file could not be opened or written, or Save had stopped
    };
    struct Unsaved {
        const CLtype* ltype;
        SaveRefusal reason;
    };

    CLtypeLoader(const CStyleTable* styles, CObjectFactory* factory);
    ~CLtypeLoader();
    CLtypeLoader(const CLtypeLoader&) = delete;
    CLtypeLoader& operator=(const CLtypeLoader&) = delete;

    /// Replaces the held line types with the file's definitions. -1 when the
    /// file cannot be opened, is not a regular file or is larger than
    /// kMaxFileSize (nothing is held then), else 0. A read failure other than
    /// the end of the file raises veld::IFile::IFileIOError (the line types
    /// read so far stay).
    int Load(const wchar_t* path);
    /// Writes every held line type to @p path, replacing it. Failures are
    /// silent; the lines written before a failure stay. What was not written
    /// is listed by GetNoUnsaved() and GetUnsavedNo() until the next Save or
    /// Load.
    void Save(const wchar_t* path);
    unsigned GetNoLtypes() const;
    const CLtype* GetLtypeNo(unsigned index);
    void Add(CLtype* ltype);
    void Remove(CLtype* ltype);
    void SetNotifier(IErrorNotifier* notifier);

    LoadFailure GetLoadFailure() const;
    /// The held line types the last Save left out of its file, in collection
    /// order, each with the reason.
    unsigned GetNoUnsaved() const;
    Unsaved GetUnsavedNo(unsigned index) const;

private:
    // One pointer: the exported layout never changes with the private state.
    struct Private;
    const std::unique_ptr<Private> d;
};

}  // namespace veld
