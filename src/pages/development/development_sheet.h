// The hidden sheet for developers of the driver.
#pragma once

class prtpage;

// Opens the sheet over a page and waits until it is closed. Its pages set switches that other
// modules of the driver read, and measure times; this module only stores the switches.
void ShowDevelopmentOptions(prtpage& page);
