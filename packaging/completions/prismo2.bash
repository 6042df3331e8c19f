# bash completion for prismo2

_prismo2_applications() {
    prismo2 ${1:+--root "$1"} apps --json 2>/dev/null |
        grep -oE '"[A-Za-z]*[Ii]dentifier": ?"[^"]*"' | cut -d '"' -f 4
}

# The shell types the offered word, so it is quoted: an application chooses its own identifier.
_prismo2_offer() {
    local word quoted
    COMPREPLY=()
    for word; do
        printf -v quoted %q "$word"
        [[ $word == "$cur"* || $quoted == "$cur"* ]] && COMPREPLY+=("$quoted")
    done
}

_prismo2_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "$1" -- "$cur")
}

_prismo2_types() {
    case $1 in
    global) _prismo2_offer global 'icon color' ;;
    *) _prismo2_offer global disabled custom ;;
    esac
}

_prismo2() {
    local elements='global keyboard statusbar sms nc cc volume folder'
    local commands='rows get set type color apps clear-cache respring package watch post drive store'
    local switches='enabled scope_enabled use_album_art'
    local options='--root --app --json --dry-run --help --version'
    local changed=com.corvane.prismo2.changed
    local cur=${COMP_WORDS[COMP_CWORD]} option='' root='' element i
    local -a words=() keys
    [[ $cur == = ]] && cur=''

    # The words before the cursor without options and their values; `option` is the one whose value is being typed.
    for ((i = 1; i < COMP_CWORD; i++)); do
        case ${COMP_WORDS[i]} in
        =) continue ;;
        --root | --app | --count | --timeout | --notify | --default | --path) option=${COMP_WORDS[i]} ;;
        -*) option='' ;;
        *)
            [[ $option != --root ]] || root=${COMP_WORDS[i]}
            [[ -n $option ]] || words+=("${COMP_WORDS[i]}")
            option=''
            ;;
        esac
    done

    case $option in
    --root) _prismo2_files -d; return ;;
    --app) mapfile -t keys < <(_prismo2_applications "$root"); _prismo2_offer "${keys[@]}"; return ;;
    --notify) _prismo2_offer $changed; return ;;
    ?*) COMPREPLY=(); return ;;
    esac

    if [[ $cur == -* ]]; then
        case ${words[0]-} in
        watch) options+=' --count --timeout' ;;
        drive) options+=' --virtual-time' ;;
        store) options+=' --notify --default --path --string' ;;
        esac
        _prismo2_offer $options
        return
    fi

    COMPREPLY=()
    case ${words[0]-},${#words[@]} in
    ,0) _prismo2_offer $commands ;;
    get,1 | set,1)
        keys=($switches)
        for element in $elements; do keys+=("${element}_color" "${element}_color_type"); done
        _prismo2_offer "${keys[@]}"
        ;;
    set,2)
        case ${words[1]} in
        *_color_type) _prismo2_types "${words[1]%_color_type}" ;;
        *_color) ;;
        *) _prismo2_offer true false on off yes no ;;
        esac
        ;;
    type,1 | color,1) _prismo2_offer $elements ;;
    type,2) _prismo2_types "${words[1]}" ;;
    watch,* | post,1) _prismo2_offer $changed ;;
    drive,1) _prismo2_files -f ;;
    store,2) _prismo2_offer get set remove list watch ;;
    esac
}

complete -F _prismo2 prismo2
