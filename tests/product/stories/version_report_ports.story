# The ports of a machine in the version report.
native
install Dock3 --model "Valdrick X4 300 dpi"
registry set "HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion\Ports" "COM1:" 1 310039003200300030002c0065002c0037002c0031002e0035002c0078000000
registry set "HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion\Ports" "COM2:" 1 3300300030002c006d002c0038002c0032002c0070000000
registry set "HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion\Ports" "LPT1:" 1 0000
registry set "HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion\Ports" "LPT2:" 1 0000
registry set "HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion\Ports" "USB001" 1 0000
registry set "HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion\Ports" "Own" 1 0000
registry set "HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion\Ports" "Other" 1 0000
registry set "HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion\Ports" "Third" 1 0000
registry set "HKLM\SYSTEM\CurrentControlSet\Enum\ACPI\PNP0401\5\Device Parameters" PortName 1 4c005000540031000000
registry set "HKLM\SYSTEM\CurrentControlSet\Enum\ACPI\PNP0401\5" DeviceDesc 1 45004300500020005000720069006e00740065007200200050006f00720074000000
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Monitors\Valdrick Port\Ports\Own" IPAddress 1 310030002e0030002e0030002e0031000000
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Monitors\Valdrick Port\Ports\Own" PortNumber 4 d5170000
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Monitors\Standard TCP/IP Port\Ports\Other" IPAddress 1 310030002e0030002e0030002e0032000000
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Monitors\Standard TCP/IP Port\Ports\Other" PortNumber 4 8c230000
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Monitors\HP Standard TCP/IP Port\Ports\Third" IPAddress 1 310030002e0030002e0030002e0033000000
registry set "HKLM\SYSTEM\CurrentControlSet\Control\Print\Monitors\HP Standard TCP/IP Port\Ports\Third" PortNumber 4 8d230000

sheet Dock3 --device
  page "About"
  click 111
  choose 1017 "Ports"
  state
  = 1020 {"text": "COM1\r\n\r\nKind:\tSerial\r\nMonitor:\tLocal Monitor\r\nBaud rate:\t19200\r\nData bits:\t7\r\nParity:\tEven\r\nStop bits:\t1.5\r\nHandshake:\tXon/Xoff\r\n\r\nCOM2\r\n\r\nKind:\tSerial\r\nMonitor:\tLocal Monitor\r\nBaud rate:\t300\r\nData bits:\t8\r\nParity:\tMark\r\nStop bits:\t2\r\nHandshake:\tHardware\r\n\r\nLPT1\r\n\r\nKind:\tParallel\r\nMonitor:\tLocal Monitor\r\nMode:\tECP\r\n\r\nUSB001\r\n\r\nKind:\tUSB\r\nMonitor:\tLocal Monitor\r\n\r\nOwn\r\n\r\nKind:\tTCP/IP\r\nMonitor:\tValdrick Port\r\nAddress:\t10.0.0.1\r\nPort number:\t6101\r\n\r\nOther\r\n\r\nKind:\tTCP/IP\r\nMonitor:\tStandard TCP/IP Port\r\nAddress:\t10.0.0.2\r\nPort number:\t9100\r\n\r\nThird\r\n\r\nKind:\tTCP/IP\r\nMonitor:\tHP Standard TCP/IP Port\r\nAddress:\t10.0.0.3\r\nPort number:\t9101\r\n\r\nFILE\r\n\r\nKind:\tUnknown\r\nMonitor:\tLocal Monitor"}
