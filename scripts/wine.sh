# SPDX-License-Identifier: MIT
# A system to run programs for Windows in: fresh, thrown away at the end, on a display of its own.
# Sourced.

# start_wine: makes one, unless a script that called this one has made it.
start_wine() {
    [[ -z ${VKR_WINE_RUNS-} ]] || return 0
    wine_scratch=$(mktemp -d)
    export WINEPREFIX=$wine_scratch/system WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" VKR_WINE_RUNS=1
    trap stop_wine EXIT
    # Its desktop keeps the display that it started with, so everything runs on one.
    exec 4< <(exec Xvfb -displayfd 1 -screen 0 2400x2000x24 -nolisten tcp 2>/dev/null)
    wine_display=$!
    local display
    read -rt 30 display <&4
    export DISPLAY=:$display
    local desktop='HKCU\Control Panel\Desktop'
    {
        # The first program makes the system. After a wineboot for that there would be two managers of
        # services, its own and that of the next program; calls between processes then hang now and then,
        # since neither knows of the service for them that the other has started.
        # A crash ends the program at once, letters are smooth.
        run_wine 180 reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' /f /v Debugger /d rundll32
        run_wine 30 reg add "$desktop" /f /v FontSmoothing /d 2
        run_wine 30 reg add "$desktop" /f /v FontSmoothingType /t REG_DWORD /d 1
        # Without a manager of windows nothing waits for one.
        run_wine 30 reg add 'HKCU\Software\Wine\X11 Driver' /f /v Managed /d N
    } >"$wine_scratch/log" 2>&1 || {
        cat "$wine_scratch/log" >&2
        exit 1
    }
}

stop_wine() {
    wineserver -k 2>/dev/null || true
    kill "$wine_display" 2>/dev/null || true
    rm -rf "$wine_scratch"
}

# run_wine <seconds> <program> [argument...]: a program that hangs is ended.
run_wine() {
    local seconds=$1
    shift
    timeout --kill-after=10 "$seconds" wine "$@"
}

# runs_32_bit: whether programs of 32 bit can be built, and run.
runs_32_bit() {
    command -v i686-w64-mingw32-g++-posix >/dev/null &&
        run_wine 60 'C:\windows\syswow64\cmd.exe' /c exit >/dev/null 2>&1
}

# wants_some "$@": whether arguments of tests ask for some of them by name, not for all or all but some.
wants_some() {
    local argument
    for argument in "$@"; do
        [[ $argument != --gtest_filter=[!-]* ]] || return 0
    done
    return 1
}
