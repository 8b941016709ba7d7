#pragma once
// Exceptions of the drawing model's file access. They carry no data and are
// thrown by value.

namespace veld {

class IFile {
public:
    class IFileException {};
    class IFileEOF : public IFileException {};
    class IFileIOError : public IFileException {};
    class IFileDiskFull : public IFileIOError {};
};

}  // namespace veld
