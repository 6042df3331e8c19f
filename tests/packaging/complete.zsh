# complete.zsh COMPLETIONS LINE: prints what zsh offers at the end of that line, one per line after "offer:", and, after
# "line:", the completed line.
# It asks a separate interactive shell, since completion needs a line editor. That shell reports its offers.
zmodload zsh/zpty

print_until() {
    local text
    while zpty -r shell text; do
        [[ $text == *$1* ]] && return
        print -rn -- $text
    done
    return 1
}

zpty shell zsh -f -i
zpty -w shell "PS1= PS2= fpath=(${(q)1} \$fpath)"
zpty -w shell 'autoload -Uz compinit && compinit -D -u; bindkey "^I" complete-word'
zpty -w shell 'compadd() {
    local -a hits; local -i looks=$@[(I)-[OAD]]
    if (( ! looks )); then builtin compadd -A hits "$@"; (( ! $#hits )) || print -rl -- "offer:"$^hits; fi
    builtin compadd "$@" }'
zpty -w shell 'finish() { print "end-of""-offers" }; comppostfuncs=(finish)'
zpty -w shell 'tell() { print -r -- "line:$BUFFER"; print "end-of""-line" }; zle -N tell; bindkey "^X" tell; print "rea""dy"'
print_until ready >/dev/null
zpty -w -n shell "$2"$'\t'
print_until end-of-offers | grep -o 'offer:.*' | tr -d '\r' | sort -u
zpty -w -n shell $'\C-x'
print_until end-of-line | grep -o 'line:.*' | tr -d '\r'
zpty -d shell
