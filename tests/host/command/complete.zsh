# Usage: complete.zsh COMPLETION LINE...
# Prints for each line what a completion offers at its end while it is being typed, one offer a
# line, and an empty line. They are typed into a shell on a terminal of its own: zsh completes
# nowhere else.

zmodload zsh/zpty
folder=$(mktemp -d)
print -rl -- ${(qq)@[2,-1]} >$folder/lines
export COMPLETIONS=${1:h} FOLDER=$folder TERM=dumb

cat >$folder/typed <<'END'
fpath=($COMPLETIONS $fpath)
autoload -U compinit
compinit -u -D

compadd() {
  local -a found
  # With these it only answers what it would add.
  if (( ! ${@[(I)-[OAD]]} )); then
    builtin compadd -A found "$@"
    print -rl -- ${(Q)found} | sed '/^$/d' >>$FOLDER/offers
  fi
  builtin compadd "$@"
}

zle-line-init() {
  for BUFFER in ${(Q)${(f)"$(<$FOLDER/lines)"}}; do
    CURSOR=$#BUFFER
    zle list-choices
    print >>$FOLDER/offers
  done
  exit
}
zle -N zle-line-init
END

zpty shell zsh -f -i
zpty -w shell "source ${(q)folder}/typed"
while zpty -r shell output; do :; done
cat $folder/offers
rm -r $folder
