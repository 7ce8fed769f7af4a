// Printer actions that open a dialog or a sheet over a page. Defined with the pages
// (pages/action_dialogs.cpp), which the table of actions cannot know.
#pragma once

class prtpage;

// Who may change the printer's settings, language and units, specifications. Then refreshes the
// sheet of `page`: cancelled or not, the lists of the UI object may be others.
void ShowAdministration(prtpage& page);
void ShowOfficeCompatibility(prtpage& page);
// The settings of the status monitor.
void ShowStatusMonitor(prtpage& page);
// The settings for objects that the rendering module keeps in the printer, and these objects.
void ShowObjectCache(prtpage& page);
