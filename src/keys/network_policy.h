// Who may change a printer's settings, and whether they are shared with the network.
#pragma once

#include "core/ostring.h"
#include "keys/prtreg.h"

// Short-lived: built for one question about one printer. Levels are UserLevel numbers (see
// keys/user_info.h). A user may change the settings if his level is not below GetAccessLevel.
class NetworkPolicy {
public:
    explicit NetworkPolicy(const OString& printer_name)
        : printer_(printer_name) {}
    // The same for a printer whose names are known from the spooler already.
    explicit NetworkPolicy(const prtreg& printer)
        : printer_(printer) {}

    // For a connection: the user follows the server's settings and the server shares them. For a
    // local printer: its settings are offered to clients and the port is bidirectional.
    bool IsNetworkShared() const;

    // Whether sharing is possible at all, whatever the switches of this computer say.
    bool CanShareNetwork() const;

    // Sets this computer's switch: the user's own one for a connection, else the printer's.
    void SetNetworkSharing(bool shared);

    // The level needed to change the settings. On a connection that is not shared everybody may
    // change them, as the changes go to the user's private copy.
    int GetAccessLevel() const;

    // Whether the user that runs this process has that level.
    bool MayChange() const;

    int GetLocalAccessLevel() const;
    void SetLocalAccessLevel(int level);
    int GetNetworkAccessLevel() const;
    void SetNetworkAccessLevel(int level);

private:
    const prtreg printer_;
};
