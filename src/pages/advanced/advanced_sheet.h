// The sheet for what a document sends beside its pages.
#pragma once

class prtpage;

// Shows the user commands and the driver options over a page.
void ShowAdvancedSheet(prtpage& page);
