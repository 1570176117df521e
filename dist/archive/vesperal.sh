#!/bin/sh
# Starts the show from wherever this file stands: the show reads its pictures and music from its own folder.
folder=$(dirname -- "$(readlink -f -- "$0")")
cd "$folder" || exit
./vesperal
status=$?
case $status in
    0 | 1) ;; # to its end, or ended by its viewer
    *) echo "vesperal.sh: the show broke off with status $status; ./vesperal-check.sh may know why" >&2 ;;
esac
exit $status
