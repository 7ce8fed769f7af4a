// Base64, compressed containers and checksums.
#include "answers/answers.h"

#include <initializer_list>

namespace {

struct Input {
    std::string name;
    Bytes bytes;
};

std::vector<Input> Inputs() {
    std::vector<Input> inputs;
    for (size_t size : {0, 1, 2, 3, 4, 5, 15, 16, 17, 63, 64, 65, 255, 1000, 1001, 70000})
        inputs.push_back({std::to_string(size) + " random bytes",
                          Noise(static_cast<uint32_t>(size)).Take(size)});
    inputs.push_back({"zeros", Bytes(300000)});
    // A label in dots: runs of both colours.
    Bytes label;
    for (Noise noise(7); label.size() < 200000;)
        label.insert(label.end(), 1 + noise.Byte() % 60u, noise.Byte() % 2 ? 0xFF : 0);
    inputs.push_back({"a label", label});
    std::string text;
    for (int i = 0; i < 3000; ++i) text += "Stock." + std::to_string(i % 97) + "=4 x 6 in\r\n";
    inputs.push_back({"text", Bytes(text.begin(), text.end())});
    return inputs;
}

} // namespace

void AskCodecs(const Module& module) {
    const auto encode = EXPORT(module, X16_Base64_Encode);
    const auto decode = EXPORT(module, X16_Base64_Decode);
    const auto compress = EXPORT(module, X16_LZ77_Encode);
    const auto decompress = EXPORT(module, X16_LZ77_Decode);
    const auto crc16 = EXPORT(module, X16_CRC16);
    const auto crc32 = EXPORT(module, X16_CRC32);

    for (const auto& [name, bytes] : Inputs()) {
        const auto size = static_cast<uint32_t>(bytes.size());
        for (uint16_t seed : std::initializer_list<uint16_t>{0, 0xFFFF, 0x1D0F})
            Tell("CRC-16 of " + name + " from " + std::to_string(seed),
                 crc16(bytes.data(), size, seed));
        for (uint32_t seed : {0u, 0xFFFFFFFFu, 0x12345678u})
            Tell("CRC-32 of " + name + " from " + std::to_string(seed),
                 crc32(bytes.data(), size, seed));

        uint32_t written = 0;
        Bytes coded((bytes.size() + 2) / 3 * 4);
        encode(bytes.data(), size, coded.data(), &written);
        coded.resize(written);
        Tell("Base64 of " + name, coded);
        Bytes decoded(coded.size() / 4 * 3 + 2);
        decode(coded.data(), written, decoded.data(), &written);
        decoded.resize(written);
        Tell("which is " + name, decoded);

        Bytes container(bytes.size() + (bytes.size() + 999) / 1000 + 24);
        uint32_t length = static_cast<uint32_t>(container.size());
        Tell(name + " compressed", compress(bytes.data(), size, container.data(), &length));
        container.resize(length);
        Tell("to", container);
        uint32_t room = size;
        Bytes plain(size + 1);
        Tell("and decompressed", decompress(container.data(), length, plain.data(), &room));
        plain.resize(room);
        Tell("to", plain);
        // What cannot be.
        Bytes small(length - 1);
        room = length - 1;
        Tell("compressed into too little", compress(bytes.data(), size, small.data(), &room));
        room = size ? size - 1 : 0;
        Tell("decompressed into too little",
             decompress(container.data(), length, plain.data(), &room));
        if (length > 200) continue;
        Bytes accepted;
        for (size_t bit = 0; bit < 8 * size_t{length}; ++bit) {
            Bytes damaged = container;
            damaged[bit / 8] = static_cast<uint8_t>(damaged[bit / 8] ^ (1 << bit % 8));
            plain.assign(size_t{size} + 1, 0);
            room = size;
            accepted.push_back(decompress(damaged.data(), length, plain.data(), &room) != 0);
            if (accepted.back()) accepted.insert(accepted.end(), plain.begin(), plain.end());
        }
        for (uint32_t cut = 0; cut < length; ++cut) {
            room = size;
            accepted.push_back(decompress(container.data(), cut, plain.data(), &room) != 0);
        }
        Tell("and when it is damaged", accepted);
    }

    for (const std::string text : {"TQ=", "TQ", "TWE", "TWFu=TWFu", "====", "A", "TW\r\nFu",
                                   "T W F", "\x80\xFF@[`{", "TWFuT"}) {
        Bytes decoded(text.size() / 4 * 3 + 2);
        uint32_t written = 0;
        decode(text.data(), static_cast<uint32_t>(text.size()), decoded.data(), &written);
        decoded.resize(written);
        Tell("Base64 text", text.data(), text.size());
        Tell("is", decoded);
    }
    const Bytes any = Noise(99).Take(4000);
    Bytes decoded(3002);
    uint32_t written = 0;
    decode(any.data(), 4000, decoded.data(), &written);
    decoded.resize(written);
    Tell("random bytes taken for Base64 are", decoded);
}
