/* Runs a program in a console of its own, with this process's standard
 * handles: console_run "PROGRAM [ARGS]".  Under Wine a program started from a
 * Unix shell has no console, so the library would send its records to the
 * output window; test programs that expect them on standard output run
 * through this runner, as they would from a console window on Windows.
 * Needs a display (Xvfb) for the console. */
#include <stdio.h>
#include <string.h>
#include <windows.h>

int main(int argc, char** argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: console_run \"PROGRAM [ARGS]\"\n");
        return 2;
    }
    HANDLE in = GetStdHandle(STD_INPUT_HANDLE), out = GetStdHandle(STD_OUTPUT_HANDLE),
           err = GetStdHandle(STD_ERROR_HANDLE);
    FreeConsole();
    if (!AllocConsole() || !SetConsoleTitleA("LBX3207QK tests")) {
        fprintf(stderr, "console_run: no console (is DISPLAY set?)\n");
        return 3;
    }
    ShowWindow(GetConsoleWindow(), SW_HIDE);
    HANDLE std[3] = {in, out, err};
    for (int i = 0; i < 3; ++i)
        if (std[i] != NULL && std[i] != INVALID_HANDLE_VALUE)
            SetHandleInformation(std[i], HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    STARTUPINFOA si;
    PROCESS_INFORMATION pi;
    ZeroMemory(&si, sizeof si);
    si.cb = sizeof si;
    si.dwFlags = STARTF_USESTDHANDLES;
    si.hStdInput = in;
    si.hStdOutput = out;
    si.hStdError = err;
    if (!CreateProcessA(NULL, argv[1], NULL, NULL, TRUE, 0, NULL, NULL, &si, &pi)) {
        fprintf(stderr, "console_run: cannot start %s (%lu)\n", argv[1],
                (unsigned long)GetLastError());
        return 4;
    }
    WaitForSingleObject(pi.hProcess, INFINITE);
    DWORD rc = 0;
    GetExitCodeProcess(pi.hProcess, &rc);
    return (int)rc;
}
