// A ZPL II printer without paper. It takes formats, downloads and settings, stores objects, and
// answers host queries accordingly.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "emulator/object_store.h"
#include "zpl/zpl_scanner.h"

struct EmulatedAnswer {
    std::string query; // "HI", "HS", "HM", "HB", "HH", "HW", "HZA", "HZF", "HZL" or "HZR"
    std::string bytes;
};

class EmulatedPrinter {
public:
    // Takes bytes from the host, in any pieces. Returns the answers to the queries in them, in
    // order.
    std::vector<EmulatedAnswer> Receive(const void* bytes, size_t size);

    // To be called when the connection ends. An open command is dropped, or executed as far as it
    // was received.
    void Disconnect();

    // What has happened since the last call, one line each: labels printed, objects stored or
    // deleted, queries.
    std::vector<std::string> TakeNotes();

    const ObjectStore& objects() const { return objects_; }
    uint32_t labels() const { return labels_; } // printed since the start

private:
    struct Settings {
        bool paused = false;
        bool continuous = false;
        bool thermal_transfer = false;
        char print_mode = 'T';
        uint32_t print_width = 832;
        uint32_t label_length = 1225;
        uint32_t darkness = 10;
        int32_t tear_off = 0;
        std::string speed = "6";
        std::string password = "0000";
    };

    // What the open format has asked for.
    struct OpenFormat {
        bool open = false;
        bool prints = false;
        uint32_t quantity = 1;
        std::string store_as; // ^DF: the format is stored and not printed
        uint64_t bytes = 0;
    };

    void Execute(const ZplCommand& command, std::vector<EmulatedAnswer>& answers);
    bool Ask(const ZplCommand& command, std::vector<EmulatedAnswer>& answers);
    void Download(const ZplCommand& command);
    void EndFormat();
    void Set(const ZplCommand& command);
    void Note(const std::string& line);
    void Store(const ObjectName& where, uint64_t size);
    void Delete(const std::string& pattern);

    std::string Identification() const;
    std::string Status() const;
    std::string Memory() const;
    std::string Battery() const;
    std::string Configuration() const;
    std::string Directory(const std::string& pattern) const;
    std::string Xml(char part) const;

    ZplScanner scanner_;
    ObjectStore objects_;
    Settings settings_;
    OpenFormat format_;
    uint32_t labels_ = 0;
    std::vector<std::string> notes_;
};
