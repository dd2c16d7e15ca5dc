#!/bin/sh
# reference.sh: makes the HTML reference of the public headers, in build/reference/html. Fails when a
# comment is misread, when a class, function, member or macro has no comment, and when a header does not
# say at its top what it is for. tools/doxygen_filter.py says which declarations share a comment.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

sh "$root/tools/setup.sh" reference
cd "$root"
mkdir -p build
rm -rf build/reference
warnings=build/reference-warnings.txt
doxygen docs/Doxyfile >/dev/null 2>"$warnings" || { cat "$warnings" >&2; die "doxygen failed"; }
# Doxygen can't place a specialisation of std::hash.
faults=$(grep -v 'scope for class std::hash<' "$warnings" || true)
for header in $(find include/quorvel -name '*.h'); do
    case $(head -n 1 "$header") in
    //*) ;;
    *) faults="$faults
$header: does not begin with a comment" ;;
    esac
done
[ -z "$faults" ] || { printf '%s\n' "$faults" >&2; die "the reference has faults"; }
say "reference: build/reference/html/index.html"
