# complete.bash COMPLETIONS WORD…: prints what bash offers for the last word, one per line, as it would be typed.
source "$1/prismo2.bash"
shift
COMP_WORDS=("$@")
COMP_CWORD=$(($# - 1))
_prismo2
printf '%s\n' "${COMPREPLY[@]}"
