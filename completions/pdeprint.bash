# Completion of pdeprint's command line for bash. Nothing else needs to be installed.

# Bash cuts words also at characters such as the "=" of NAME=VALUE. Sets the caller's words to those
# that blanks cut, the last one up to the cursor, and its kept to the beginning of the last one that
# bash does not replace.
__pdeprint_words() {
  local line=${COMP_LINE:0:COMP_POINT} rest i
  words=()
  for ((i = 0; i <= COMP_CWORD; i++)); do
    rest=${line#"${line%%[![:blank:]]*}"}
    [[ $i -gt 0 && $rest == "$line" ]] || words+=('')
    if ((i < COMP_CWORD)); then
      words[-1]+=${COMP_WORDS[i]}
      line=${rest#"${COMP_WORDS[i]}"}
    fi
  done
  kept=${words[-1]}
  words[-1]+=$rest
  [[ $rest == *[!=:@]* ]] || kept=${words[-1]}
}

# Sets REPLY to the word without its quotes.
__pdeprint_unquote() {
  case $1 in
    [\"\']*) REPLY=${1:1} REPLY=${REPLY%[\"\']} ;;
    *) REPLY=${1//\\/} ;;
  esac
}

__pdeprint_options() {
  case $1 in
    show)
      echo -d --queue --ppd -P --preset --ticket --snapshot --wait --alert --json --title --app \
        --accept-label --parent --warm
      ;;
    print) echo -d --queue -P --preset --ticket --set -n --copies -t --title --wait --alert ;;
    save)
      echo -o --output --png --resolution --force -d --queue --ppd -P --preset --ticket --set -n \
        --copies
      ;;
    settings) echo -d --queue --ppd -P --preset --ticket --set --json ;;
    check) echo -d --queue --json ;;
    queues) echo --json ;;
    enable) echo -d --queue -o --output --apply --all --json --method ;;
    disable) echo -d --queue -o --output --apply --all --json ;;
    portal)
      echo --enable --disable --status -h --help
      return
      ;;
    *) return 1 ;;
  esac
  echo --plugin --timeout -h --help
}

__pdeprint_takes_value() {
  case $1 in
    --wait | --alert | --warm | --json | --apply | --all | --png | --force | --enable | --disable | --status | -h | --help) return 1 ;;
  esac
  [[ " $options " == *" $1 "* ]]
}

# Files with one of the suffixes, and folders on the way to them.
__pdeprint_files() {
  local suffix
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(
    compgen -d -- "$current"
    for suffix; do compgen -f -X "!*$suffix" -- "$current"; done
  )
}

# Those lines of the input that begin with the current word.
__pdeprint_lines() {
  local line
  while IFS= read -r line; do
    [[ $line == "$current"* ]] && COMPREPLY+=("$line")
  done
}

__pdeprint_preset_names() {
  local folders folder file name
  printf '%s\n' 'Default Settings' 'Last Used'
  IFS=: read -r -a folders <<<"${XDG_CONFIG_DIRS:-/etc/xdg}"
  for folder in "${XDG_CONFIG_HOME:-$HOME/.config}" "${folders[@]}"; do
    for file in "$folder"/pdeprint/presets/*.plist; do
      [[ -f $file ]] || continue
      name=${file##*/}
      name=${name%.plist}
      name=${name//'%2F'/'/'}
      name=${name//'%2E'/.}
      printf '%s\n' "${name//'%25'/%}"
    done
  done
}

__pdeprint_presets() {
  # Quoted as file names are: they may hold blanks.
  compopt -o filenames 2>/dev/null
  __pdeprint_lines < <(__pdeprint_preset_names)
}

__pdeprint_queues() {
  __pdeprint_lines < <(timeout 2 lpstat -e 2>/dev/null </dev/null)
}

# KEYWORD=CHOICE, a line each, of the PPD file or queue that the command line names.
__pdeprint_printer_options() {
  if [[ $ppd ]]; then
    [[ -f $ppd ]] || return
    # A PPD file may be compressed.
    timeout 2 zcat -f -- "$ppd" 2>/dev/null | LC_ALL=C awk '
      /^\*(JCL)?OpenUI[ \t]/ { keyword = $2; sub(/[\/:].*/, "", keyword); next }
      /^\*(JCL)?CloseUI/ { keyword = "" }
      keyword != "" && $1 == keyword {
        sub(/[\/:].*/, "", $2)
        print substr(keyword, 2) "=" $2
      }'
  else
    timeout 2 lpoptions ${queue:+-p "$queue"} -l 2>/dev/null </dev/null | LC_ALL=C awk '
      {
        keyword = $0
        sub(/\/.*/, "", keyword)
        sub(/.*: /, "")
        for (i = 1; i <= NF; i++) {
          sub(/^\*/, "", $i)
          if ($i !~ /^Custom\./) print keyword "=" $i
        }
      }'
  fi
}

# NAME=VALUE, a line each, without a value where there are many: the settings of background
# numbering, the printer's options, and the options of every queue.
__pdeprint_pairs() {
  printf '%s\n' Valid={On,Off} Size={Small,Medium,Large} Density={Light,Medium,Dark} \
    Color={Black,Red,Green,Blue,Cyan,Magenta,Yellow} StartNumber=
  __pdeprint_printer_options
  printf '%s\n' collate={true,false} copies= finishings= fit-to-page={true,false} job-billing= \
    job-hold-until={no-hold,indefinite} job-priority= job-sheets= landscape={true,false} media= \
    mirror={true,false} multiple-document-handling= number-up={1,2,4,6,9,16} number-up-layout= \
    orientation-requested={3,4,5,6} outputorder={normal,reverse} page-border= page-bottom= \
    page-left= page-ranges= page-right= page-set={all,odd,even} page-top= \
    print-color-mode={auto,color,monochrome} print-quality={3,4,5} print-scaling= \
    printer-resolution= sides={one-sided,two-sided-long-edge,two-sided-short-edge}
}

__pdeprint_settings() {
  local pair
  if [[ $current == *=* ]]; then
    while IFS= read -r pair; do
      [[ $pair == "$current"* && $pair != *= ]] && COMPREPLY+=("$pair")
    done < <(__pdeprint_pairs)
    return
  fi
  compopt -o nospace 2>/dev/null
  __pdeprint_lines < <(__pdeprint_pairs | LC_ALL=C sed 's/=.*/=/' | LC_ALL=C sort -u)
}

__pdeprint_values() {
  case $1 in
    -d | --queue) __pdeprint_queues ;;
    -o | --output)
      if [[ $verb == save ]]; then __pdeprint_files .pdf .png; else __pdeprint_files .ppd .ppd.gz; fi
      ;;
    --ppd) __pdeprint_files .ppd .ppd.gz ;;
    -P | --preset) __pdeprint_presets ;;
    --ticket) __pdeprint_files .plist ;;
    --snapshot) __pdeprint_files .png ;;
    --plugin) __pdeprint_files ;;
    --method) __pdeprint_lines < <(printf '%s\n' printer filter) ;;
    --set) __pdeprint_settings ;;
  esac
}

# Takes note of an option's value that other values depend on.
__pdeprint_note() {
  __pdeprint_unquote "$2"
  case $1 in
    -d | --queue) queue=$REPLY ;;
    --ppd) ppd=${REPLY/#'~/'/"$HOME/"} ;;
  esac
}

_pdeprint() {
  local words kept current options verb word option='' prefix='' only_files='' queue='' ppd='' REPLY
  COMPREPLY=()
  __pdeprint_words
  __pdeprint_unquote "${words[-1]}"
  current=$REPLY
  if ((${#words[@]} == 2)); then
    options='show print save settings check queues enable disable portal'
    [[ $current != -* ]] || options='-h --help --version'
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    return
  fi
  verb=${words[1]}
  options=$(__pdeprint_options "$verb") || return
  options=${options//$'\n'/ }

  # The option that waits for the current word, if any, and the printer.
  for word in "${words[@]:2:${#words[@]}-3}"; do
    if [[ $option ]]; then
      __pdeprint_note "$option" "$word"
      option=
    elif [[ $only_files ]]; then
      continue
    elif [[ $word == -- ]]; then
      only_files=1
    elif __pdeprint_takes_value "$word"; then
      option=$word
    elif [[ $word == --*=* ]]; then
      __pdeprint_note "${word%%=*}" "${word#*=}"
    else
      __pdeprint_note "${word:0:2}" "${word:2}"
    fi
  done

  if [[ ! $option && ! $only_files ]]; then
    if [[ $current == --*=* ]]; then
      option=${current%%=*}
      prefix=$option=
    elif [[ $current == -[!-]?* ]]; then
      option=${current:0:2}
      prefix=$option
    fi
    __pdeprint_takes_value "$option" || option='' prefix=''
  fi
  if [[ $option ]]; then
    current=${current#"$prefix"}
    __pdeprint_values "$option"
    COMPREPLY=("${COMPREPLY[@]/#/$prefix}")
  elif [[ $current == -* && ! $only_files ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
  elif [[ $verb == check || $verb =~ ^(en|dis)able$ && ! $queue ]]; then
    __pdeprint_files .ppd .ppd.gz
  elif [[ $verb =~ ^(print|save)$ || $verb == show && ! $ppd ]]; then
    __pdeprint_files ''
  fi
  __pdeprint_unquote "$kept"
  COMPREPLY=("${COMPREPLY[@]#"$REPLY"}")
}

complete -F _pdeprint pdeprint
