#!/bin/sh
# tested.sh TESTS LIST... - the tests name every listed function or datum at least once.
set -eu
tests=$1
shift
status=0
# shellcheck disable=SC2013 # names have no blanks
for name in $(cat "$@"); do
    grep -rqw --include='*.cpp' --include='*.[ch]' -e "$name" "$tests" || {
        echo "$name is in no test"
        status=1
    }
done
exit $status
