// Files by their names as the command line has them, in UTF-8.
#pragma once

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <string>

// The path of a name, and the name of a path.
std::filesystem::path PathOf(const std::string& name);
std::string NameOf(const std::filesystem::path& path);

// All bytes of a file. Throws the Fault `what` with the file's name and the reason when it cannot
// be read. No more than `most` bytes are read; the file may be longer.
std::string ReadBytes(const std::string& what, const std::string& file, size_t most = SIZE_MAX);

// The same for an open file: bad() tells when it cannot be read.
std::string ReadBytes(std::istream& in, size_t most = SIZE_MAX);

// A file that is written aside, until it is complete and takes the place of another one; removed
// with the object when it does not come to that, whoever wrote it.
class FileAside {
public:
    // Under the name of `file` with an ending of its own.
    explicit FileAside(const std::string& file);
    ~FileAside();
    FileAside(const FileAside&) = delete;
    FileAside& operator=(const FileAside&) = delete;

    const std::string& name() const { return name_; }

    // Takes the place of `file`. Throws the Fault `what` with the name of `file` and the reason
    // when it cannot.
    void Replace(const std::string& what, const std::string& file) const;

private:
    const std::string name_;
};
