# Sourced by what runs commands on virtual displays.

# Starts a display and a window manager, which write into the folder, sets DISPLAY, and names the two
# processes in `servers`.
#   start_display FOLDER
start_display() {
  local folder=$1 number tool attempt
  servers=()
  for tool in Xvfb openbox xdotool xclip xprop; do
    command -v "$tool" >/dev/null ||
      { echo "${0##*/}: $tool is missing; scripts/test installs it" >&2; return 1; }
  done

  # The server chooses a free display number itself and says so when it is ready.
  mkfifo "$folder/display"
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$folder/display" >"$folder/xvfb.log" 2>&1 &
  servers+=($!)
  read -r -t 60 number <"$folder/display" || { cat "$folder/xvfb.log" >&2; return 1; }
  export DISPLAY=:$number

  openbox >"$folder/openbox.log" 2>&1 &
  servers+=($!)
  for ((attempt = 0; attempt < 600; attempt++)); do
    # What it supports is the last that it says of itself.
    [[ $(xprop -root _NET_SUPPORTED 2>/dev/null) == *_NET_ACTIVE_WINDOW* ]] && return
    read -r -t 0.05 -u 3 3<>"$folder/display" || true
  done
  cat "$folder/openbox.log" >&2
  echo "${0##*/}: the window manager does not start" >&2
  return 1
}

# Ends the two, and what commands with this temporary folder have left behind: services of the platform.
#   end_display FOLDER
end_display() {
  local process
  for process in "${servers[@]}" $(grep -lzsxF "TMPDIR=$1" /proc/[0-9]*/environ | tr -cd '0-9\n'); do
    kill "$process" 2>/dev/null || true  # one that has ended by itself is no failure of the command
  done
  wait 2>/dev/null || true
  rm -rf "$1"
}
