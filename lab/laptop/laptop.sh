# The virtual laptop, to be sourced by a bash script with `set -euo pipefail`: an X server with two panels, a Wine prefix
# with the programs in place, and the server that keeps it running.
#
#   laptop_step COMMAND…          a lengthy command that a signal to the script ends, with all that it started
#   laptop_prepare SOURCE STATE   builds what the X server needs, makes the base prefix once; SOURCE is the repository,
#                                 STATE a folder for what is built and running
#   laptop_install LAB CONTROLLER the programs of the laptop, once it has a fresh prefix
#   laptop_boot                   X server, prefix and Wine server up; DISPLAY and WINEPREFIX set
#   laptop_run PROGRAM…           a Windows program in the lab's folder
#   laptop_end                    ends all of it, by process id; safe to call at any time, also twice

readonly LAPTOP_WINE=/usr/lib/wine/wine64
readonly LAPTOP_WINESERVER=/usr/lib/wine/wineserver64
readonly LAPTOP_XORG=/usr/lib/xorg/Xorg
readonly LAPTOP_BASE_VERSION=2  # count up when the making of the base prefix changes

laptop_x_pid=
laptop_wine_pid=
laptop_step_pid=
laptop_new_base=  # while it is made

# In the background, so that the script takes a signal at once, and a process group of its own, which can be ended whole.
laptop_step() {
  local outcome=0
  set -m
  "$@" </dev/null &
  laptop_step_pid=$!
  set +m
  wait "$laptop_step_pid" || outcome=$?
  laptop_step_pid=
  return "$outcome"
}

# Waits until a command succeeds, at most 30 seconds, while the process lives: laptop_wait "what" pid command…
laptop_wait() {
  local what=$1 pid=$2 tries
  shift 2
  for ((tries = 0; tries < 600; tries++)); do
    if "$@"; then return 0; fi
    if laptop_is_over "$pid"; then break; fi
    sleep 0.05
  done
  echo "the laptop's $what did not come up" >&2
  return 1
}

laptop_is_over() { ! kill -0 "$1" 2>/dev/null; }

# ---- Built once ----

laptop_prepare() {
  laptop_source=$1/lab/laptop
  laptop_state=$2
  mkdir -p "$laptop_state/modules/extensions" "$laptop_state/logs" "$laptop_state/pictures"
  # One laptop at a time: a second run would fight for the same prefix. The lock is this script's alone; what it starts
  # does not inherit it.
  exec {laptop_lock}>"$laptop_state/lock"
  if ! flock --timeout 5 "$laptop_lock"; then
    echo "the laptop is in use by another run" >&2
    return 1
  fi

  export WINEDEBUG=-all LC_ALL=C.UTF-8
  export WINEDLLOVERRIDES='mscoree,mshtml='  # no offers to install what the lab does not need

  laptop_build_x_parts
  laptop_make_base
}

laptop_build_x_parts() {
  local module=$laptop_state/modules/extensions/libpanelrot.so tool=$laptop_state/set_edid
  if [[ $laptop_source/panelrot.c -nt $module ]]; then
    # shellcheck disable=SC2046  # a list of compiler options
    gcc -std=gnu11 -O1 -shared -fPIC -Wall $(pkg-config --cflags xorg-server) "$laptop_source/panelrot.c" -o "$module"
  fi
  if [[ $laptop_source/set_edid.cpp -nt $tool ]]; then
    g++ -std=c++20 -O1 -Wall -Wextra -Werror "$laptop_source/set_edid.cpp" -o "$tool" -lX11 -lXrandr
  fi
}

# The base prefix is a Windows as it was installed, never run again: every boot works on a copy.
laptop_make_base() {
  local base=$laptop_state/base wanted
  wanted="$LAPTOP_BASE_VERSION $("$LAPTOP_WINE" --version)"
  if [[ -f $base/made && $(<"$base/made") == "$wanted" ]]; then return 0; fi
  echo "Installing Windows on the laptop (once, about 15 seconds)"
  rm -rf "$base"
  mkdir -p "$base"
  laptop_new_base=$base
  laptop_step laptop_install_windows "$base" >"$laptop_state/logs/wineboot.log" 2>&1
  laptop_new_base=
  echo "$wanted" >"$base/made"
}

# Without groups of their own (--foreground), so that a step's end reaches them.
laptop_install_windows() {
  exec {laptop_lock}>&-
  unset DISPLAY
  export WINEPREFIX=$1
  timeout --foreground 120 "$LAPTOP_WINE" wineboot -i
  timeout --foreground 60 "$LAPTOP_WINE" regedit /S "Z:${laptop_source//\//\\}\\base.reg"
  # Only a prefix whose first server has ended loads drivers later.
  timeout --foreground 60 "$LAPTOP_WINESERVER" -w
}

# ---- Booted each time ----

laptop_start_x() {
  sed "s#@MODULES@#$laptop_state/modules#" "$laptop_source/panels.conf.in" >"$laptop_state/panels.conf"
  local number_file=$laptop_state/display
  : >"$number_file"
  # The server picks a free display number by itself and tells it through descriptor 7.
  "$LAPTOP_XORG" -displayfd 7 -config "$laptop_state/panels.conf" -logfile "$laptop_state/logs/xorg.log" -noreset \
    -nolisten tcp -novtswitch -sharevts 7>"$number_file" >"$laptop_state/logs/xorg.out" 2>&1 {laptop_lock}>&- &
  laptop_x_pid=$!
  if ! laptop_wait "X server" "$laptop_x_pid" test -s "$number_file"; then
    tail -n 5 "$laptop_state/logs/xorg.out" >&2
    return 1
  fi
  DISPLAY=:$(<"$number_file")
  export DISPLAY
  xrandr --output DUMMY1 --rotate right --pos 0x1080
  "$laptop_state/set_edid" DUMMY0 BPA 0x1234 'B PANEL' 1920 1080 344 194
  "$laptop_state/set_edid" DUMMY1 TSB 0x8888 'C PANEL' 515 1920 79 294
}

laptop_boot() {
  export WINEPREFIX=$laptop_state/prefix
  rm -rf "$WINEPREFIX"
  # Windows itself, which no program changes, is linked: 700 MB. The registry is written to.
  cp -a --link "$laptop_state/base" "$WINEPREFIX"
  cp -a --remove-destination "$laptop_state"/base/*.reg "$WINEPREFIX"
  laptop_start_x
  # In the foreground, and for 600 seconds after the last program: a server that came and went would unload the drivers.
  "$LAPTOP_WINESERVER" -f -p600 >"$laptop_state/logs/wineserver.log" 2>&1 {laptop_lock}>&- &
  laptop_wine_pid=$!
  # It works in the folder of the socket that programs find it by.
  laptop_wait "Wine server" "$laptop_wine_pid" test -S "/proc/$laptop_wine_pid/cwd/socket"
}

# laptop_install LAB CONTROLLER: the lab's programs and drivers, and the controller with its package check beside it.
laptop_install() {
  local lab=$1 controller=$2
  local drive=$WINEPREFIX/drive_c
  mkdir -p "$drive/lab" "$drive/Program Files/NORV/Tessaview"
  cp "$lab"/*.exe "$lab"/*.dll "$lab"/*.sys "$lab"/*.inf "$drive/lab/"
  cp "$controller" "${controller%/*}/NorvTessaviewCheck.exe" "$drive/Program Files/NORV/Tessaview/"
}

# laptop_run SECONDS PROGRAM ARGUMENT…: no longer than so many seconds.
laptop_run() {
  local seconds=$1 program=$2
  shift 2
  timeout --kill-after=5 "$seconds" "$LAPTOP_WINE" "C:\\lab\\$program" "$@" </dev/null {laptop_lock}>&-
}

# ---- Ended each time ----

# Ends one process and waits until it is gone; by force after 5 seconds.
laptop_end_process() {
  local pid=$1 tries
  kill "$pid" 2>/dev/null || true
  for ((tries = 0; tries < 100; tries++)); do
    if laptop_is_over "$pid"; then return 0; fi
    sleep 0.05
  done
  kill -KILL "$pid" 2>/dev/null || true
}

laptop_end() {
  if [[ -n $laptop_step_pid ]]; then
    kill -- "-$laptop_step_pid" 2>/dev/null || true
    wait "$laptop_step_pid" 2>/dev/null || true
    laptop_step_pid=
  fi
  if [[ -n $laptop_new_base ]]; then
    WINEPREFIX=$laptop_new_base timeout 10 "$LAPTOP_WINESERVER" -k || true
    laptop_new_base=
  fi
  if [[ -n $laptop_wine_pid ]]; then
    # The server ends every Windows process of its own prefix, drivers included, and then itself.
    timeout 10 "$LAPTOP_WINESERVER" -k || true
    laptop_end_process "$laptop_wine_pid"
    wait "$laptop_wine_pid" 2>/dev/null || true
    laptop_wine_pid=
  fi
  if [[ -n $laptop_x_pid ]]; then
    laptop_end_process "$laptop_x_pid"
    wait "$laptop_x_pid" 2>/dev/null || true
    laptop_x_pid=
  fi
}
