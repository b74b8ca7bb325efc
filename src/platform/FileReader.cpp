#include "platform/FileReader.h"

#include "platform/DesktopFolders.h"

namespace velmo::platform
{

Result<FileReader> FileReader::Open(std::string_view path)
{
    auto file = OpenFile::Open(path, OpenFile::For::Reading);
    return file ? Result(FileReader(std::move(file).Value())) : file.Failure();
}

Result<FileReader> FileReader::OpenOwnProgram()
{
    return Open(ProgramPath());
}

} // namespace velmo::platform
