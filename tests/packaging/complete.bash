# complete.bash COMPLETIONS WORD…: what bash offers for the last word, one on each line, as it would be typed.
source "$1/prismo2.bash"
shift
COMP_WORDS=("$@")
COMP_CWORD=$(($# - 1))
_prismo2
printf '%s\n' "${COMPREPLY[@]}"
