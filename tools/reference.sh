#!/bin/sh
# reference.sh: makes the HTML reference of the public headers, in build/reference/html. Fails when a
# comment is misread, a class has none, or a header does not say at its top what it is for: that comment
# is also the contract of the functions and members below it that have none of their own.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

sh "$root/tools/setup.sh" reference
cd "$root"
mkdir -p build
rm -rf build/reference
warnings=build/reference-warnings.txt
doxygen docs/Doxyfile >/dev/null 2>"$warnings" || { cat "$warnings" >&2; die "doxygen failed"; }
# Doxygen wants a comment for each member, whatever the one above says of them all, and can't place a
# specialisation of std::hash.
faults=$(grep -v -e ': warning: Member .* is not documented\.$' -e 'scope for class std::hash<' "$warnings" || true)
for header in $(find include/quorvel -name '*.h'); do
    case $(head -n 1 "$header") in
    //*) ;;
    *) faults="$faults
$header: does not begin with a comment" ;;
    esac
done
[ -z "$faults" ] || { printf '%s\n' "$faults" >&2; die "the reference has faults"; }
say "reference: build/reference/html/index.html"
