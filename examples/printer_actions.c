/* Lists the actions of a label printer, or runs one. In C, as any program without a user interface
 * may do it:
 *
 *     printer_actions PRINTER                 the actions that the driver offers
 *     printer_actions PRINTER NUMBER [CHOICE] run one of them; 22 sends a file (full Windows path)
 *
 * The functions come from the driver's own configuration module, so they always fit the printer.
 */
#include <zplui.h>

#include <stdio.h>
#include <stdlib.h>

typedef HANDLE(WINAPI* PrinterOpen)(HANDLE printer);
typedef void(WINAPI* PrinterClose)(HANDLE settings);
typedef DWORD(WINAPI* ActionSupported)(HANDLE settings, int action);
typedef int(WINAPI* ActionName)(HANDLE settings, int action, LPWSTR name, int size);
typedef BOOL(WINAPI* ActionRun)(HANDLE settings, int action, LPCWSTR choice);

#define FIND(type, name) ((type)(void (*)(void))GetProcAddress(driver, name))

/* The configuration module of the printer's driver, loaded; null if there is none. */
static HMODULE LoadDriver(HANDLE printer) {
    DWORD size = 0;
    DRIVER_INFO_3W* info;
    HMODULE module = NULL;
    GetPrinterDriverW(printer, NULL, 3, NULL, 0, &size);
    info = (DRIVER_INFO_3W*)malloc(size);
    if (info && GetPrinterDriverW(printer, NULL, 3, (BYTE*)info, size, &size))
        module = LoadLibraryW(info->pConfigFile);
    free(info);
    return module;
}

static void ListActions(HANDLE settings, ActionSupported supported, ActionName name_of) {
    int action;
    for (action = 1; action <= DAL_ACTION_LAST; ++action) {
        WCHAR wide[128];
        char name[512] = "";
        if (!supported(settings, action)) continue;
        name_of(settings, action, wide, (int)(sizeof wide / sizeof *wide));
        WideCharToMultiByte(CP_UTF8, 0, wide, -1, name, (int)sizeof name, NULL, NULL);
        printf("%3d %s\n", action, name);
    }
}

static int Work(HANDLE printer, HMODULE driver, int argc, char** argv) {
    PrinterOpen open = FIND(PrinterOpen, "DAL_Printer_Open");
    PrinterClose close = FIND(PrinterClose, "DAL_Printer_Close");
    ActionSupported supported = FIND(ActionSupported, "DAL_Action_Supported");
    ActionName name_of = FIND(ActionName, "DAL_Action_Name");
    ActionRun run = FIND(ActionRun, "DAL_Action_Run");
    HANDLE settings;
    int status = 0;
    if (!open || !close || !supported || !name_of || !run) {
        fprintf(stderr, "printer_actions: not a driver of this kind\n");
        return 1;
    }
    settings = open(printer);
    if (argc == 2) {
        ListActions(settings, supported, name_of);
    } else {
        WCHAR choice[MAX_PATH] = {0};
        if (argc > 3) MultiByteToWideChar(CP_UTF8, 0, argv[3], -1, choice, MAX_PATH);
        if (!run(settings, atoi(argv[2]), choice)) {
            fprintf(stderr, "printer_actions: action %s cannot be done here\n", argv[2]);
            status = 1;
        }
    }
    close(settings);
    return status;
}

int main(int argc, char** argv) {
    WCHAR name[MAX_PATH] = {0};
    HANDLE printer = NULL;
    HMODULE driver;
    int status = 1;
    if (argc < 2 || argc > 4) {
        fprintf(stderr, "usage: printer_actions PRINTER [NUMBER [CHOICE]]\n");
        return 2;
    }
    MultiByteToWideChar(CP_UTF8, 0, argv[1], -1, name, MAX_PATH);
    if (!OpenPrinterW(name, &printer, NULL)) {
        fprintf(stderr, "printer_actions: no printer '%s'\n", argv[1]);
        return 1;
    }
    driver = LoadDriver(printer);
    if (driver) {
        status = Work(printer, driver, argc, argv);
        FreeLibrary(driver);
    } else {
        fprintf(stderr, "printer_actions: cannot load the driver of '%s'\n", argv[1]);
    }
    ClosePrinter(printer);
    return status;
}
