# Prints each LINE as zsh completes it at its end, in a terminal of its own.
# Usage: zsh -f complete_in_zsh.zsh FOLDER_OF_COMPLETIONS LINE...
zmodload zsh/zpty
folder=$1
shift
result=$(mktemp)

zpty shell "TERM=dumb zsh -f -i"
zpty -w shell "PS1=; fpath=(${(q)folder} \$fpath); autoload -Uz compinit; compinit -u -D"
zpty -w shell "completed() { zle complete-word; print -r -- \$BUFFER >> $result; BUFFER= }"
zpty -w shell "zle -N completed; bindkey '^I' completed"
count=0
for line in "$@"; do
    zpty -w -n shell "$line"$'\t'
    count=$((count + 1))
    for attempt in {1..300}; do
        [[ $(wc -l < $result) -ge $count ]] && break
        # An unread terminal would stop the shell in it.
        while zpty -r -t shell ignored; do :; done
        sleep 0.1
    done
done
sed 's/ *$//' $result
zpty -d shell
rm $result
