# The objects that jobs store in the printer, and how many it may keep. Not for Windows, because Wine
# loads no rendering module, which keeps the list.
native
file format.prn
  ^XA^DFR:LABEL.ZPL^FO10,10^A0N,30,30^FN1^FS^XZ
file graphic.prn
  ~DGR:LOGO.GRF,1536,8,FF
file second.prn
  ^XA^DFR:AGAIN.ZPL^FS^XZ
install Dock3 --model "Valdrick X4 300 dpi"

# The numbers move their neighbours, and stay within their limits.
sheet Dock3 --device
  page "Tools"
  click 616
  state fresh
  = {"title": "Cache Settings", "apply": false}
  = 641 {"text": "1024"}
  = 642 {"text": "1"}
  = 643 {"text": "100"}
  = 645 {"text": "1"}
  = 646 {"text": "100"}
  type 642 "900"
  state raised
  = {"apply": true}
  = 643 {"text": "900"}
  type 643 "5"
  state lowered
  = 642 {"text": "5"}
  type 645 "1000"
  leave
  state graphics
  = 645 {"text": "999"}
  = 646 {"text": "999"}
  type 646 "7"
  leave
  state graphics
  = 645 {"text": "7"}
  type 641 "9000"
  leave
  choose 644 #1
  choose 647 #1
  state largest
  = 641 {"text": "8192"}
  help
  cancel
  # Cancel has sent nothing.
  click 616
  state unchanged
  = same "fresh"
  type 643 "5"
  type 641 "512"
  choose 644 #1
  choose 647 #0
  apply
  state
  = {"apply": false}
  cancel
  click 616
  state stored
  = 641 {"text": "512"}
  = 643 {"text": "5"}
  = 644 {"selection": [1]}
  = 647 {"selection": [0]}
  click 648
  state reset
  = 641 {"text": "1024"}
  = 643 {"text": "100"}
  ok
  cancel

sheet Dock3 --device
  page "Tools"
  click 616
  page "Cache Contents"
  state empty
  = 661 {"items": []}
  cancel
  menu 612 28694
  file "$FILES\\format.prn"
  menu 612 28694
  file "$FILES\\graphic.prn"
  menu 612 28694
  file "$FILES\\second.prn"
  click 616
  page "Cache Contents"
  state filled
  = {"apply": false}
  = 661 {"items": [["Graphic 1", "1.5 K", "0", "1", "LOGO.GRF"], ["Format 1", "0.0 K", "0", "2", "LABEL.ZPL"], ["Format 2", "0.0 K", "0", "0", "AGAIN.ZPL"]]}
  # Without a selection there is nothing to print, lock or delete.
  click 662
  state
  = {"window": "menu", "items": {"0": {"id": 671, "enabled": false}, "1": {"id": 672, "enabled": false}, "2": {"id": 673, "enabled": false}, "4": {"id": 674, "enabled": true}}}
  key ESC
  select 661 #1
  menu 662 672
  state before
  = 661 {"items": {"1": {"0": "Format 1"}}}
  clock 1000
  state locked
  = 661 {"items": {"1": {"0": "Format 1 *"}}, "selection": [1]}
  click 662
  state
  = {"items": {"1": {"checked": true}}}
  key ESC
  # Sorting keeps the selection on its object; the same column again reverses.
  column 661 #4
  state names
  = 661 {"items": {"0": {"4": "AGAIN.ZPL"}, "1": {"4": "LABEL.ZPL"}, "2": {"4": "LOGO.GRF"}}, "selection": [1]}
  column 661 #4
  state names
  = 661 {"items": {"0": {"4": "LOGO.GRF"}}}
  column 661 #1
  state sizes
  = 661 {"items": {"0": {"4": "LOGO.GRF"}, "2": {"4": "AGAIN.ZPL"}}}
  column 661 #3
  state ages
  = 661 {"items": {"0": {"4": "LABEL.ZPL"}, "2": {"4": "AGAIN.ZPL"}}, "selection": [0]}
  column 661 #2
  column 661 #0
  # One kind of object is always shown.
  menu 663 676
  menu 663 675
  state formats
  = 661 {"items": {"0": {"0": "Format 1 *"}, "2": null}}
  menu 663 675
  menu 663 675
  state formats
  = 661 {"items": {"0": {"0": "Format 1 *"}, "1": {"0": "Format 2"}, "2": null}}
  menu 663 676
  state graphics
  = 661 {"items": {"0": {"0": "Graphic 1"}, "1": null}, "selection": []}
  menu 663 676
  select 661 #2
  menu 662 673
  clock 999
  state
  = 661 {"items": 3}
  clock 1
  state
  = 661 {"items": 2, "selection": []}
  select 661 #1
  menu 662 671
  clock 1000
  state printed
  = 661 {"items": {"1": {"0": "Format 1 *", "2": "1", "3": "0"}}, "selection": [1]}
  menu 662 672
  clock 1000
  state unlocked
  = 661 {"items": {"1": {"0": "Format 1"}}}
  menu 662 674
  clock 1000
  state
  = 661 {"items": []}
  help
  cancel
  cancel
jobs Dock3
= {"/3/name": "Delete Object", "/4/name": "Print Object", "/5/name": "Clear Object Cache", "/6": null}

# A reset of the printer forgets what lay in its memory.
sheet Dock3 --device
  page "Tools"
  menu 612 28694
  file "$FILES\\format.prn"
  menu 612 28682
  click 616
  page "Cache Contents"
  state
  = 661 {"items": []}
  cancel
  cancel

# With one number for formats, each makes the one before go; the printer erases what is not stored
# again later in the job. What finds no place beside what is locked erases nothing.
file three.prn
  ^XA^DFR:LABEL.ZPL^FS^XZ^XA^DFR:AGAIN.ZPL^FS^XZ^XA^DFR:LABEL.ZPL^FS^XZ
file large.prn
  ~DGR:LARGE.GRF,600000,8,FF
file larger.prn
  ~DGR:SMALL.GRF,300000,8,FF
  ~DGR:LARGER.GRF,700000,8,FF
sheet Dock3 --device
  page "Tools"
  click 616
  type 643 "1"
  apply
  cancel
  menu 612 28694
  file "$FILES\\three.prn"
  menu 612 28694
  file "$FILES\\large.prn"
  click 616
  page "Cache Contents"
  state
  = 661 {"items": [["Graphic 1", "586 K", "0", "0", "LARGE.GRF"], ["Format 1", "0.0 K", "0", "1", "LABEL.ZPL"]]}
  select 661 #0
  menu 662 672
  cancel
  menu 612 28694
  file "$FILES\\larger.prn"
  click 616
  page "Cache Contents"
  state
  = 661 {"items": [["Graphic 1 *", "586 K", "0", "1", "LARGE.GRF"], ["Graphic 2", "293 K", "0", "0", "SMALL.GRF"], ["Format 1", "0.0 K", "0", "2", "LABEL.ZPL"]]}
  cancel
  cancel
jobs Dock3
= {"/8/name": "three.prn", "/8/bytes": 95, "/10/name": "larger.prn", "/10/bytes": 55}

# The numbers follow what is typed, not each digit on the way. This model keeps no formats.
sheet Dock3 --device
  page "Tools"
  click 616
  type 642 "100"
  leave
  type 643 "600"
  state
  = 642 {"text": "100"}
  cancel
  cancel
install Sorter --model "Valdrick P4 PPLZ"
sheet Sorter --device
  page "Tools"
  click 616
  state
  = 651 {"enabled": false}
  = 642 {"text": "", "enabled": false}
  = 652 {"enabled": false}
  = 643 {"text": "", "enabled": false}
  = 653 {"enabled": false}
  = 644 {"items": [], "enabled": false}
  = 654 {"enabled": true}
  = 645 {"text": "1", "enabled": true}
  = 646 {"text": "100", "enabled": true}
  cancel
  cancel
