// Files by the names that the command line has, in UTF-8.
#pragma once

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <string>

// The path with a name, and the name of a path.
std::filesystem::path PathOf(const std::string& name);
std::string NameOf(const std::filesystem::path& path);

// All bytes of a file. Throws the Fault `what` with the file's name and the reason if it cannot be
// read. Reads at most `most` bytes; the file may be longer.
std::string ReadBytes(const std::string& what, const std::string& file, size_t most = SIZE_MAX);

// The same for an open file; bad() says if it cannot be read.
std::string ReadBytes(std::istream& in, size_t most = SIZE_MAX);

// A file that is written aside until it is complete and replaces another one. If it does not come
// to that, the destructor removes it, whoever wrote it.
class FileAside {
public:
    // Its name is that of `file` with a unique part and the extension after it.
    explicit FileAside(const std::string& file, const std::string& extension = ".part");
    ~FileAside();
    FileAside(const FileAside&) = delete;
    FileAside& operator=(const FileAside&) = delete;

    const std::string& name() const { return name_; }

    // Replaces `file`. Throws the Fault `what` with the name of `file` and the reason if it cannot.
    void Replace(const std::string& what, const std::string& file) const;

private:
    const std::string name_;
};
