# Sheets that begin elsewhere, that show less, or that may only be looked at.
install Dock3 --model "Valdrick X4 300 dpi"

# Another program left the wish to see the cache: once, only its pages come.
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData" "FW Message" 4 04000000
sheet Dock3 --device
= {"/pages": ["General", "Cache Settings", "Cache Contents", "About"]}
registry dump "HKLM\SYSTEM\CurrentControlSet\Control\Print\Printers\Dock3\PrinterDriverData"
= {"/values/FW Message/data": "00000000"}
sheet Dock3 --device
= {"/pages": ["General", "Fonts", "Tools", "About"]}
