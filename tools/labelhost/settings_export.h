// A printer's settings as its driver writes them into a settings file.
#pragma once

#include "open_settings.h"

#include <string>

// A name for a file for a moment: removed with the object, whoever wrote it.
class TemporaryFile {
public:
    // `path` with an ending of this process's own.
    explicit TemporaryFile(std::string path);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& path() const { return path_; }

private:
    const std::string path_;
};

// The bytes of a settings file. Throws Fault when it cannot be read.
std::string ReadSettingsFile(const std::string& path);

// Has the driver export settings to a file or import them from one (`function` is the name of its
// export); `contents` is a sum of DAL_SETTINGS_.
void CallWithFile(const OpenSettings& settings, const char* function, const std::string& file,
                  int contents);

// What the printer has now: the text of a settings file.
std::string ExportedSettings(const OpenSettings& settings, int contents);
