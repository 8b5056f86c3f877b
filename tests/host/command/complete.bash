# Usage: complete.bash COMPLETION LINE...
# Prints for each line what a completion offers at its end while it is being typed, one offer a
# line, and an empty line.

source "$1"
shift

# Sets COMP_WORDS as bash does: cut at blanks, and around some characters.
cut_words() {
  local rest=$1 word='^[[:blank:]]*([=:@]+|"[^"]*"?|'\''[^'\'']*'\''?|(\\.|[^]=:@"'\''[:blank:]\\[])+)'
  COMP_WORDS=()
  while [[ $rest =~ $word ]]; do
    COMP_WORDS+=("${BASH_REMATCH[1]}")
    rest=${rest#"${BASH_REMATCH[0]}"}
  done
  [[ -z $rest ]] || COMP_WORDS+=('')
}

for COMP_LINE; do
  COMP_POINT=${#COMP_LINE}
  cut_words "$COMP_LINE"
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  [[ $(complete -p "${COMP_WORDS[0]}") =~ \ -F\ ([^ ]+) ]] || exit
  "${BASH_REMATCH[1]}" "${COMP_WORDS[0]}" "${COMP_WORDS[-1]}"
  printf '%s\n' "${COMPREPLY[@]}" | sed '/^$/d'
  echo
done
