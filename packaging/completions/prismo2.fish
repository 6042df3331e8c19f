# fish completion for prismo2

# The words before the cursor without options and their values.
function __prismo2_words
    set -l value_next no
    for token in (commandline -opc)[2..-1]
        if test $value_next = yes
            set value_next no
            continue
        end
        switch $token
            case --root --app --count --timeout --notify --default --path
                set value_next yes
            case '-*'
            case '*'
                printf '%s\n' $token
        end
    end
end

# Whether those words match the given patterns one for one.
function __prismo2_after
    set -l words (__prismo2_words)
    test (count $words) -eq (count $argv); or return 1
    for i in (seq (count $argv))
        string match -q -- $argv[$i] $words[$i]; or return 1
    end
end

function __prismo2_command
    set -l words (__prismo2_words)
    test (count $words) -gt 0; and test $words[1] = $argv[1]
end

function __prismo2_elements
    printf '%s\n' global keyboard statusbar sms nc cc volume folder
end

function __prismo2_keys
    printf '%s\n' enabled scope_enabled use_album_art (__prismo2_elements)_color{,_type}
end

function __prismo2_applications
    set -l tokens (commandline -opc)
    set -l at (contains -i -- --root $tokens)
    and set -l root --root $tokens[(math $at + 1)]
    prismo2 $root apps --json 2>/dev/null | string match -ra '"[A-Za-z]*[Ii]dentifier": ?"[^"]*"' | string split -f 4 '"'
end

complete -c prismo2 -f
complete -c prismo2 -l root -xa '(__fish_complete_directories)' -d 'The device root'
complete -c prismo2 -l app -xa '(__prismo2_applications)' -d 'Application scope'
complete -c prismo2 -l json -d 'Print JSON'
complete -c prismo2 -l dry-run -d 'Change nothing outside the process'
complete -c prismo2 -s h -l help -d 'Show help'
complete -c prismo2 -l version -d 'Show the version'

complete -c prismo2 -n __prismo2_after -a rows -d 'Print the rows of the page'
complete -c prismo2 -n __prismo2_after -a get -d 'Print the value of a row'
complete -c prismo2 -n __prismo2_after -a set -d 'Write through a row'
complete -c prismo2 -n __prismo2_after -a type -d 'Show or choose the color type of an element'
complete -c prismo2 -n __prismo2_after -a color -d 'Show or store the color of an element'
complete -c prismo2 -n __prismo2_after -a apps -d 'List the installed applications'
complete -c prismo2 -n __prismo2_after -a clear-cache -d 'Remove the cached icon colors'
complete -c prismo2 -n __prismo2_after -a respring -d 'Restart the user interface'
complete -c prismo2 -n __prismo2_after -a package -d 'Open the package manager'
complete -c prismo2 -n __prismo2_after -a watch -d 'Print change notifications'
complete -c prismo2 -n __prismo2_after -a post -d 'Post a notification'
complete -c prismo2 -n __prismo2_after -a drive -d 'Play the taps of a script'
complete -c prismo2 -n __prismo2_after -a store -d 'Work on another preference domain'

complete -c prismo2 -n '__prismo2_after get' -a '(__prismo2_keys)'
complete -c prismo2 -n '__prismo2_after set' -a '(__prismo2_keys)'
for key in enabled scope_enabled use_album_art
    complete -c prismo2 -n "__prismo2_after set $key" -a 'true false on off yes no'
end
for command in type color
    complete -c prismo2 -n "__prismo2_after $command" -a '(__prismo2_elements)'
end
for words in 'type global' 'set global_color_type'
    complete -c prismo2 -n "__prismo2_after $words" -a 'global "icon color"'
end
for element in (__prismo2_elements | string match -v global)
    for words in "type $element" "set $element"_color_type
        complete -c prismo2 -n "__prismo2_after $words" -a 'global disabled custom'
    end
end

for command in watch post
    complete -c prismo2 -n "__prismo2_command $command" -a com.corvane.prismo2.changed
end
complete -c prismo2 -n '__prismo2_command watch' -l count -x -d 'Stop after this many lines'
complete -c prismo2 -n '__prismo2_command watch' -l timeout -x -d 'Stop after this many seconds'
complete -c prismo2 -n '__prismo2_command drive' -l virtual-time -d 'Time passes only by wait'
complete -c prismo2 -n '__prismo2_after drive' -F
complete -c prismo2 -n '__prismo2_after store "*"' -a 'get set remove list watch'
complete -c prismo2 -n '__prismo2_command store' -l notify -xa com.corvane.prismo2.changed -d 'The notification for a change'
complete -c prismo2 -n '__prismo2_command store' -l default -x -d 'The value of a key that is not stored'
complete -c prismo2 -n '__prismo2_command store' -l path -r -d 'The file'
complete -c prismo2 -n '__prismo2_command store' -l string -d 'Take the value as text'
