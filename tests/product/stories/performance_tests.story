# The development options' tests of printing send pages to the printer.
native
install Dock3 --model "Valdrick X4 300 dpi"
sheet Dock3 --device
  page "About"
  click 111 CTRL+ALT+SHIFT
  page "Performance"
  menu 728 142
  menu 728 144
  menu 728 155
  menu 728 156
  cancel
  cancel
jobs Dock3
= {"/0/name": "Performance Test", "/1/name": "Performance Test", "/2": null}
