# Sourced by what runs commands on virtual displays.

# Starts a display, a window manager and, where there is GNUstep, its pasteboard server, which write into
# the folder, sets DISPLAY, and names the processes in `servers`. One that does not come up beside others is ended, and another one started.
#   start_display FOLDER
start_display() {
  local folder=$1 tool attempt
  for tool in Xvfb openbox xdotool xclip xprop; do
    command -v "$tool" >/dev/null ||
      { echo "${0##*/}: $tool is missing; scripts/test installs it" >&2; return 1; }
  done
  mkfifo "$folder/display"
  for attempt in 1 2 3; do
    servers=()
    start_servers "$folder" && return
    end_servers
  done
  cat "$folder"/*.log >&2
  echo "${0##*/}: no display with a window manager comes up, tried $attempt times" >&2
  return 1
}

# The same, once.
#   start_servers FOLDER
start_servers() {
  local folder=$1 number wait
  : >"$folder/openbox.log"
  # The server chooses a free display number itself and says so when it is ready.
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3<>"$folder/display" >"$folder/xvfb.log" 2>&1 &
  servers+=($!)
  read -r -t 60 number <>"$folder/display" || return 1
  export DISPLAY=:$number

  openbox >"$folder/openbox.log" 2>&1 &
  servers+=($!)
  for ((wait = 0; wait < 600; wait++)); do
    kill -0 "${servers[0]}" 2>/dev/null && kill -0 "${servers[1]}" 2>/dev/null || return 1
    # What it supports is the last that it says of itself.
    [[ $(xprop -root _NET_SUPPORTED 2>/dev/null) == *_NET_ACTIVE_WINDOW* ]] && break
    read -r -t 0.05 -u 3 3<>"$folder/display" || true
  done
  ((wait < 600)) && start_pasteboards "$folder"
}

# One that programs start themselves ends with the last of them, in the middle of the next one's work.
#   start_pasteboards FOLDER
start_pasteboards() {
  local folder=$1 wait
  command -v gpbs >/dev/null || return 0
  TMPDIR=$folder TEMP=$folder gpbs --no-fork >"$folder/gpbs.log" 2>&1 &
  servers+=($!)
  for ((wait = 0; wait < 600; wait++)); do
    kill -0 "${servers[2]}" 2>/dev/null || return 1
    [[ -z $(find "$folder" -path '*/NSMessagePort/names/*' -print -quit) ]] || return 0
    read -r -t 0.05 -u 3 3<>"$folder/display" || true
  done
  return 1
}

end_servers() {
  local process
  for process in "${servers[@]}"; do
    kill "$process" 2>/dev/null || true  # one that has ended by itself is no failure of the command
    wait "$process" 2>/dev/null || true
  done
  servers=()
}

# Ends the two, and what commands with this temporary folder have left behind: services of the platform.
#   end_display FOLDER
end_display() {
  local process
  for process in $(grep -lzsxF "TMPDIR=$1" /proc/[0-9]*/environ | tr -cd '0-9\n'); do
    kill "$process" 2>/dev/null || true
  done
  end_servers
  wait 2>/dev/null || true
  rm -rf "$1"
}
