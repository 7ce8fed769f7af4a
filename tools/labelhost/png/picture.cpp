#include "png/picture.h"

#include "fault.h"
#include "files.h"
#include "png/png_parts.h"

#include <cerrno>
#include <fstream>
#include <new>
#include <system_error>

namespace fs = std::filesystem;

namespace {

std::string Reason() {
    return errno == ENOENT ? "no such file" : std::generic_category().message(errno);
}

// The bytes of a file that starts like a PNG file. Other files, such as devices, may have no end.
std::string BytesOf(const std::string& file) {
    std::ifstream in(PathOf(file), std::ios::binary);
    if (!in) throw Fault(Reason());
    char begin[kPngSignature];
    in.read(begin, sizeof begin);
    if (in.bad()) throw Fault(Reason());
    RequirePngSignature(reinterpret_cast<const uint8_t*>(begin), static_cast<size_t>(in.gcount()));
    std::string bytes(begin, sizeof begin);
    bytes += ReadBytes(in);
    if (in.bad()) throw Fault(Reason());
    return bytes;
}

} // namespace

Picture ReadPicture(const std::string& file, int max_side) {
    try {
        const std::string bytes = BytesOf(file);
        return DecodePicture(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size(),
                             max_side);
    } catch (const std::bad_alloc&) {
        throw Fault("cannot read picture '" + file + "': not enough memory");
    } catch (const Fault& fault) {
        throw Fault("cannot read picture '" + file + "': " + fault.what());
    }
}

void WritePicture(const std::string& file, const Picture& picture, PngForm form) {
    const std::string what = "cannot write picture";
    std::error_code ignored;
    const auto kind = fs::status(PathOf(file), ignored).type();
    // Renaming would replace a device with a file.
    if (kind != fs::file_type::not_found && kind != fs::file_type::regular)
        throw Fault(what + " '" + file + "': not a plain file");
    const FileAside aside(file);
    if (const std::string reason = EncodePicture(aside.name(), picture, form); !reason.empty())
        throw Fault(what + " '" + file + "': " + reason);
    aside.Replace(what, file);
}
