# Completion of orvrtf's command line in bash.
# shellcheck shell=bash

# Options that take a value, and all others, by the command that they go with.
_orvrtf_value_options='--from --to --engine --html-style --media --width --footnotes --annotations'
_orvrtf_value_options+=' --output-dir --jobs --timeout'
_orvrtf_convert_options="$_orvrtf_value_options --table-layout --ms-word-highlight --decorate-links --keep-going"
_orvrtf_info_options='--json'
_orvrtf_diff_options='--from --to --engine'
_orvrtf_reading_options='--storage'
_orvrtf_general_options='--help --version'

# Prints the command on the line before the current word, if there is one.
_orvrtf_command() {
    local i word
    for ((i = 1; i < COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        # The "=" of an option is a word of its own, and the value the next.
        if [[ $word == = || " $_orvrtf_value_options " == *" $word "* ]]; then
            ((++i))
            [[ $word != = && ${COMP_WORDS[i]} == = ]] && ((++i))
        elif [[ $word != -* || $word == - ]]; then
            printf '%s\n' "$word"
            return
        fi
    done
}

# Prints the option whose value the current word is, if it is one.
_orvrtf_option() {
    local i=$((COMP_CWORD - 1))
    [[ ${COMP_WORDS[i]} == = ]] && ((--i))
    [[ ${COMP_WORDS[i]} == --* ]] && printf '%s\n' "${COMP_WORDS[i]}"
}

# Whether a "--" before the current word has ended the options.
_orvrtf_only_files() {
    local i
    for ((i = 1; i < COMP_CWORD; ++i)); do
        [[ ${COMP_WORDS[i]} == -- ]] && return
    done
    return 1
}

# _orvrtf_words WORDS WORD: completes WORD to one of WORDS.
_orvrtf_words() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2")
}

# _orvrtf_paths ACTION WORD: completes WORD to a path, -f for files and -d for folders only.
_orvrtf_paths() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "$1" -- "$2")
}

# _orvrtf_output_formats COMMAND: prints the formats that COMMAND can write.
_orvrtf_output_formats() {
    if [[ $1 == diff ]]; then
        printf 'html txt\n'
    else
        printf 'rtf html txt md odt pdf png\n'
    fi
}

# _orvrtf_value OPTION WORD COMMAND: completes WORD as the value of OPTION; fails when that takes none.
_orvrtf_value() {
    case $1 in
        --from) _orvrtf_words 'rtf html txt' "$2" ;;
        --to) _orvrtf_words "$(_orvrtf_output_formats "$3")" "$2" ;;
        --engine) _orvrtf_words 'auto libreoffice abiword pandoc' "$2" ;;
        --html-style) _orvrtf_words 'full minimal none' "$2" ;;
        --footnotes | --annotations) _orvrtf_words 'annotation footnote alternate' "$2" ;;
        --jobs) _orvrtf_words 'auto 1 2 4 8' "$2" ;;
        --media | --output-dir) _orvrtf_paths -d "$2" ;;
        --timeout | --width) ;;
        *) return 1 ;;
    esac
}

# _orvrtf_options COMMAND: prints the options that go with COMMAND, all when it is empty.
_orvrtf_options() {
    local command=$1
    [[ -z $command || $command == convert ]] && printf '%s ' "$_orvrtf_convert_options"
    [[ -z $command || $command == info ]] && printf '%s ' "$_orvrtf_info_options"
    [[ $command == diff ]] && printf '%s ' "$_orvrtf_diff_options"
    [[ $command != strip ]] && printf '%s ' "$_orvrtf_reading_options"
    printf '%s\n' "$_orvrtf_general_options"
}

_orvrtf() {
    local word=${COMP_WORDS[COMP_CWORD]} command
    COMPREPLY=()
    if ! _orvrtf_only_files; then
        command=$(_orvrtf_command)
        _orvrtf_value "$(_orvrtf_option)" "${word#=}" "$command" && return
        if [[ $word == -* ]]; then
            _orvrtf_words "$(_orvrtf_options "$command")" "$word"
            return
        fi
        if [[ -z $command ]]; then
            _orvrtf_words 'convert info check strip diff' "$word"
            return
        fi
    fi
    _orvrtf_paths -f "$word"
}

complete -F _orvrtf orvrtf
