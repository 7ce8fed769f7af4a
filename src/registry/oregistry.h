// The gateway to the Windows registry: every value has one symbolic path.
#pragma once

#include <windows.h>

#include "core/memory.h"
#include "core/obuffer.h"
#include "core/ostring.h"
#include "core/ostring_array.h"

class RegistryLines;

// A path is a root, a colon, and names separated by "/" (or "\"). The last name is a value or, for
// the operations on keys, the last key: "LOCAL:Printers/Dock3/Shadow". Roots, in any case:
//
//   CLASSES_ROOT:  CURRENT_USER:  LOCAL_MACHINE:  USERS:   the registry's roots, also written
//                  0: 1: 2: 3:
//   USER:          the driver's settings of the current user
//   LOCAL:         those of the machine;  GLOBAL: "Global Settings" below them
//   PRINT:         the spooler's key
//
// Inside a name "//" is a slash, "::" a colon and "%%" a percent sign; "%" and two hexadecimal
// digits stand for the character with that code. EncodeName does all that is needed. A name without
// a root is relative to the base key, which Import and Export set.
//
// Reads never create a key and never look at the type of a value, only at its size. Writes create
// missing keys, open to every account. A key that the user may only read can be read; writes to it
// fail. Nothing here throws or shows a message.
//
// Several writes belong together in an ORegistryTransaction (registry/oregistry_transaction.h).
//
// One key stays open between calls, so that work on one key is quick. An ORegistry belongs to the
// thread that made it; threads and processes meet in the registry itself.
class ORegistry {
public:
    ORegistry() = default;
    // A copy has the same base key, opens its own key and is in no transaction.
    ORegistry(const ORegistry& other)
        : base_key_(other.base_key_) {}
    ORegistry& operator=(const ORegistry&) = delete;
    virtual ~ORegistry();

    // Values of any type: the bytes written or read, or -1. A read fails if the value does not fit
    // into `size` bytes; `type` is only what the caller expects.
    int32_t SetData(const OString& name, const void* data, uint32_t size, uint32_t type);
    int32_t GetData(const OString& name, void* buffer, uint32_t size, uint32_t type);

    // REG_SZ. A read takes up to 8192 bytes, with or without a terminator. An existing empty string
    // is an answer; a longer one is not.
    bool SetString(const OString& name, const OString& value);
    OString GetString(const OString& name, const OString& default_value);
    // Whether a text is short enough for GetString to return it: up to 4095 characters.
    static bool CanStore(const OString& value);

    // REG_MULTI_SZ. Empty strings are not stored. Set always returns true. A read takes up to 10000
    // bytes. It replaces the strings, or returns false and leaves them.
    bool SetMultiString(const OString& name, const OStringArray& values);
    bool GetMultiString(const OString& name, OStringArray& values);

    // Numbers: REG_DWORD, and REG_BINARY of 4 bytes and of 1 byte. Each can read what the others of
    // its size have written.
    bool SetDWORD(const OString& name, uint32_t value);
    uint32_t GetDWORD(const OString& name, uint32_t default_value);
    bool SetInt(const OString& name, int32_t value);
    int32_t GetInt(const OString& name, int32_t default_value);
    bool SetByte(const OString& name, unsigned char value);
    unsigned char GetByte(const OString& name, unsigned char default_value);

    // REG_BINARY, like SetData and GetData.
    int32_t SetBinary(const OString& name, const void* data, uint32_t size);
    int32_t GetBinary(const OString& name, void* buffer, uint32_t size);

    // The byte size and the registry type of a value; null pointers are not filled. False if there
    // is no such value.
    bool GetInfo(const OString& name, uint32_t* size, uint32_t* type);

    // The byte size of a value, or -1 if there is none.
    int32_t GetSize(const OString& name);

    // The numbers of subkeys and values of a key; null pointers are not filled. False if there is
    // no such key.
    bool GetKeyInfo(const OString& key, uint32_t* keys, uint32_t* values);

    // The names of a key's subkeys or values, not escaped, in the registry's order. Returns their
    // number, or -1, with `names` unchanged, if the key cannot be opened.
    int EnumKeys(const OString& key, OStringArray& names);
    int EnumValues(const OString& key, OStringArray& names);

    // The same for the names that match a pattern: a key, a slash and a last part with "*" (any run
    // of characters) or "?" (one character), case-sensitive. Without either the pattern is a key,
    // and all its names match.
    int EnumMatchingKeys(const OString& pattern, OStringArray& names);
    int EnumMatchingValues(const OString& pattern, OStringArray& names);

    // Deletes the key of that name or, if there is none, the value. A key with subkeys is deleted
    // only if `recursive` is set. The registry's roots cannot be deleted.
    bool Delete(const OString& name, bool recursive);

    // Deletes every subkey (with everything below it) and every value that matches a pattern as
    // above. A pattern without "*" and "?" is deleted as a name. False if it cannot be resolved.
    bool DeletePattern(const OString& pattern);

    // Appends a key with everything below it to `lines`, in the form of Windows registry files
    // without their first line. False if the path has no root. Import restores every value with its
    // type, except that types other than strings, lists, numbers and binary become binary.
    bool Export(const OString& key, OStringArray& lines);
    // The same, passing on the lines as they are made.
    bool Export(const OString& key, RegistryLines& lines);

    // Applies lines of that form. A key in the text replaces the one in the registry with
    // everything below it; "[-key]" deletes one. Lines that make no sense are skipped. Either all
    // of it is applied, or nothing, and then HasFailed is true. Always true.
    bool Import(const OStringArray& lines);

    // True if any operation since ForgetFailures, or ever, failed other than by finding nothing:
    // the registry could not be read or written. A read then answers as if nothing were there. Lack
    // of memory counts, anywhere on this thread.
    [[nodiscard]] bool HasFailed() const;
    void ForgetFailures();

    // The path of a key in Windows notation ("HKEY_CURRENT_USER\SOFTWARE\..."). One without a root
    // stays without, and becomes empty if it has no slash either.
    OString SubstituteWindowsSyntax(const OString& key);

    // A name escaped so that it stays one name in a path: "%", "/" and ":" become "%25", "%2F"
    // and "%3A".
    static OString EncodeName(const OString& name);

protected:
    // Splits a name into the full path of its key, with roots substituted, and the name of its
    // value, with escapes decoded. `key` comes in as the key that relative names belong to. With an
    // empty `value`, `key` itself is resolved as a key. False if neither holds a colon or a slash.
    bool GetKeyAndValue(OString& key, OString& value);

    // Makes `path`, fully substituted, the open key. False when it cannot be opened.
    bool SetKey(const OString& path, bool create);

    // Closes the open key. To be called if OpenKey would now lead elsewhere.
    void ReleaseKey();

    // Applies one substitution rule to `s`. A `from` with a colon is a root and replaced only at
    // the start, in any case; any other is replaced everywhere, case-sensitively.
    static void Substitute(OString& s, const char* from, const OString& to);

    // Rewrites a key path in place, so that it begins with the number of a registry root. A path
    // without a colon is left alone.
    virtual void SubstituteKey(OString& key);

    // Opens a substituted key, or returns null on failure. The caller closes it.
    virtual HKEY OpenKey(const OString& key, bool create);

    // The same for the path of a key below an open one, in the registry's own notation.
    HKEY OpenKeyBelow(HKEY root, const OString& path, bool create);

private:
    friend class ORegistryTransaction;

    static OString SyntaxStandard(const OString& windows);
    static OString SyntaxWindows(const OString& standard);

    // Makes `path` (substituted) the open key and runs `operation` on it. Returns the operation's
    // error. Nothing is done if memory for the path was short since `memory` was made, as the path
    // would be that of another key.
    template <typename Operation>
    LONG OnKey(const OString& path, bool create, Operation operation,
               const AllocationWatch& memory = {}) {
        if (create && !MayWrite()) return ERROR_WRITE_FAULT;
        if (memory.Failed()) return ERROR_OUTOFMEMORY;
        if (!SetKey(path, create)) return ERROR_FILE_NOT_FOUND;
        if (memory.Failed()) return ERROR_OUTOFMEMORY;
        LONG error = operation(key_);
        if (error == ERROR_KEY_DELETED) {
            // Someone else deleted the key that was kept open. There may be a new one by now.
            ReleaseKey();
            if (SetKey(path, create)) error = operation(key_);
        }
        return Noted(error, create);
    }
    // The same on the key of `name`, resolved against the base key. `operation` gets the key and
    // the name of the value.
    template <typename Operation>
    LONG OnValue(const OString& name, bool create, Operation operation);

    int EnumNames(const OString& key, OStringArray& names, bool keys);
    int EnumMatching(const OString& pattern, OStringArray& names, bool keys);

    // On a full path, substituted.
    int EnumPath(const OString& path, OStringArray& names, bool keys);
    bool DeletePath(const OString& path, bool recursive);
    // Deletes the key of that name below a path, with everything below it.
    bool DeleteBelow(const OString& path, const OString& name);
    struct Exporter; // what an export works with
    void ExportPath(const OString& path, Exporter& to);
    // Writes all values of an open key. Returns whether there are any.
    bool ExportValues(HKEY key, Exporter& to);

    // Remembers a failure. For a write every error is one.
    LONG Noted(LONG error, bool write);
    // Whether nothing has failed in the transaction, if there is one.
    bool MayWrite() const { return !in_transaction_ || !HasFailed(); }

    // On an open handle; the results are Win32 error codes.
    static void CloseKey(HKEY key);
    LONG DeleteKey(HKEY key, const OString& name);
    LONG DeleteValue(HKEY key, const OString& name);
    static LONG SetData(HKEY key, const OString& name, const void* data, uint32_t size,
                        uint32_t type);
    static LONG GetData(HKEY key, const OString& name, void* buffer, uint32_t size,
                        uint32_t& count);
    static LONG GetKeyInfo(HKEY key, uint32_t* keys, uint32_t* values);
    static LONG GetInfo(HKEY key, const OString& name, uint32_t* size, uint32_t* type);
    static LONG EnumKey(HKEY key, uint32_t index, OBuffer<WCHAR>& name);
    static LONG EnumValue(HKEY key, uint32_t index, OBuffer<WCHAR>& name);
    // The same with the value's data. `data` grows if it is too small.
    static LONG EnumValue(HKEY key, uint32_t index, OBuffer<WCHAR>& name,
                          OBuffer<unsigned char>& data, uint32_t& size, uint32_t& type);

    HANDLE transaction_ = nullptr;
    bool in_transaction_ = false;
    bool only_reads_ = false; // in this transaction
    bool failed_ = false;
    AllocationWatch memory_; // since failures were forgotten

    HKEY key_ = nullptr;
    OString path_;     // of the open key, substituted; empty if none is open
    OString base_key_; // the key that relative names belong to
};

// The byte that two hexadecimal characters stand for. A digit counts its value, any other character
// its low four bits plus 9.
unsigned char xtohex2(WCHAR high, WCHAR low);
