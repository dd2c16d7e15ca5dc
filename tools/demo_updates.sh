#!/bin/sh
# demo_updates.sh WINDOWS-PRESET: runs the updater, which demo.sh has built, as a Linux and as a Windows
# program with a real web server. Prints what a user sees, and fails if the two differ.
# Then runs the update dialogs in the same way, and prints what they show.
# If port 80 of this machine is not available, everything runs in a separate network.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

windows=$1
demo=$root/build/demo-updates
nginx=/usr/sbin/nginx
key='Software\Quorvel demo updates'
site=http://127.0.0.1

skip() { # skip REASON
    say "demo: no check for updates here: $1"
    exit 0
}

is_port_free() {
    python3 - 2>/dev/null <<'EOF'
import socket
with socket.socket() as server:
    server.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
    server.bind(("127.0.0.1", 80))
    server.listen()
EOF
}

own_network='unshare --map-current-user --net --keep-caps'
in_own_network=${2:-}
if [ -n "$in_own_network" ]; then
    ip link set lo up
    # Wine's server opens the sockets in the network in which it was started, so this one needs its own.
    export QUORVEL_CACHE="$cache/own-network"
else
    sh "$root/tools/setup.sh" demo || skip "the web server could not be installed"
    if ! is_port_free; then
        $own_network ip link set lo up 2>/dev/null ||
            skip "port 80 of 127.0.0.1 is taken or forbidden, and so is a network of its own"
        say "demo: port 80 of 127.0.0.1 can't be had: the checks for updates get a network of their own"
        exec $own_network sh "$0" "$windows" --own-network
    fi
fi

program() { # program NAME ARGUMENT...: as $build has it
    name=$1
    shift
    case $build in
    linux)
        ${prefix:-} env SSL_CERT_FILE="$demo/authority.pem" LC_ALL=C.UTF-8 TZ=Europe/Berlin QUORVEL_REGISTRY="$demo/registry.db" \
            "$root/build/linux-debug/bin/$name" "$@"
        ;;
    windows)
        ${prefix:-} env WINERUN_LOCALE=C.UTF-8 WINERUN_TZ=Europe/Berlin \
            "$root/tools/winerun.sh" "$root/build/$windows/bin/$name.exe" "$@"
        ;;
    esac
}

# A check within 15 seconds of the last one is refused. The demonstration does not wait; it deletes the date.
forget() { # forget [VALUE]: of the settings, or all of them
    if [ $# = 1 ]; then set -- "HKCU\\$key\\Check For Updates" "$1"; else set -- "HKCU\\$key"; fi
    program settings remove "$@" >settings.txt 2>&1
}

server_pid=
finish() {
    trap - EXIT
    [ -z "$server_pid" ] || kill "$server_pid" 2>/dev/null || true
    for build in linux windows; do forget || true; done
    trust remove || true
    # Otherwise the next demonstration would find Wine's server in a network that no longer exists.
    if [ -n "$in_own_network" ]; then
        for prefix in "$QUORVEL_CACHE"/wine*/; do WINEPREFIX=$prefix wineserver -k 2>/dev/null || true; done
    fi
    rm -rf "$server"
}

# A certificate authority for the demonstration, and its certificate for this machine.
make_certificates() {
    newkey="-newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -noenc"
    # shellcheck disable=SC2086
    {
        openssl req -x509 $newkey -keyout authority.key -out authority.pem -days 2 \
            -subj "/CN=Quorvel demonstration" -addext basicConstraints=critical,CA:TRUE -addext keyUsage=keyCertSign
        openssl req $newkey -keyout "$server/site.key" -out site.csr -subj /CN=localhost
        echo "subjectAltName=DNS:localhost" >site.txt
        openssl x509 -req -in site.csr -CA authority.pem -CAkey authority.key -days 2 -extfile site.txt \
            -out "$server/site.pem"
    } 2>openssl.txt || die "no certificates: $(cat openssl.txt)"
}
# For Linux programs a variable names the authority.
trust() { # trust add|remove
    WINERUN_LOCALE=C.UTF-8 python3 "$root/tools/wine_authority.py" "$1" "$demo/authority.pem" "$root/tools/winerun.sh"
}

# nginx writes into one folder only, keeps its user and stays in the foreground.
start_server() {
    mkdir -p "$server/html/slow" "$server/secure"
    cat >"$server/nginx.conf" <<EOF
daemon off;
master_process off;
user root; # started by another user, it stays that one
pid nginx.pid;
events {}
http {
    access_log off;
    types { application/rss+xml xml; }
    client_body_temp_path temp;
    proxy_temp_path temp;
    fastcgi_temp_path temp;
    uwsgi_temp_path temp;
    scgi_temp_path temp;
    server {
        listen 127.0.0.1:80;
        root html;
        location /slow/ {
            limit_rate_after 500; # the header is not held back
            limit_rate 100;
        }
        location /moved/ { rewrite ^/moved(/.*) https://localhost:8443\$1 permanent; }
    }
    server {
        listen 127.0.0.1:8443 ssl;
        root secure;
        ssl_certificate site.pem;
        ssl_certificate_key site.key;
    }
}
EOF
    $nginx -p "$server" -e stderr -c nginx.conf >"$server/error.log" 2>&1 &
    server_pid=$!
    until [ -s "$server/nginx.pid" ]; do # it listens by then
        kill -0 $server_pid 2>/dev/null || die "the web server does not run: $(cat "$server/error.log")"
        sleep 0.1
    done
}

publish() { # publish LISTING FILE DATE: at the site
    cp "$1" "$server/html/$2"
    touch -d "$3" "$server/html/$2"
}

# The output as a terminal shows it. The progress bar is on standard error and overwrites itself: after a
# complete download only its last state is visible.
show() {
    tr '\r' '\n' <errors.txt | grep '(100%)' | tail -n 1 >bar.txt || true
    tr -d '\r' <output.txt |
        sed -e 's/^\[y\/n\] /&y\n/' -e '/^Connected to updates server. Downloading/r bar.txt'
}

heading() { # heading TITLE ARGUMENT...: of the updater
    printf '\n== %s\n' "$1"
    shift
    echo "\$ updater --settings '$key' --file local.xml${*:+ $*}"
}

run_updater() { # run_updater ARGUMENT...
    program updater --settings "$key" --file local.xml "$@" >output.txt 2>errors.txt
}

require_code() { # require_code EXPECTED CODE
    show
    say "(exit code $2)"
    [ "$1" = "$2" ] || die "$build: the updater ended with $2 and not with $1: $(cat errors.txt)"
}

updater() { # updater CODE TITLE ARGUMENT...
    expected=$1
    shift
    heading "$@"
    shift
    code=0
    echo y >answer.txt
    run_updater "$@" <answer.txt || code=$?
    require_code "$expected" $code
}

# A download at 100 bytes a second, interrupted as by Ctrl+C. The signal is sent to a process group, as a
# terminal does, since there is another process between this shell and a Windows program.
cancel() {
    heading 'Cancelled by Ctrl+C while it downloads' --site $site/slow/updates.xml --yes
    : >output.txt
    (prefix='exec setsid' && run_updater --site $site/slow/updates.xml --yes) </dev/null &
    waited=0
    until grep -q Downloading output.txt || [ $waited = 300 ]; do
        sleep 0.1
        waited=$((waited + 1))
    done
    kill -s INT -- "-$!"
    code=0
    wait $! || code=$?
    require_code 3 $code
}

require_same() { # require_same FILE FILE
    cmp "$1" "$2" || die "the local file differs from the site's"
}

checks() {
    rm -f local.xml
    publish old.xml updates.xml '2024-03-12 08:31:00 UTC'
    publish new.xml slow/updates.xml '2024-04-02 10:16:00 UTC'
    updater 0 'The first check' --site $site/updates.xml --yes
    require_same local.xml old.xml
    updater 1 'Another one at once' --yes
    forget 'Last Checked'
    updater 0 'Later, without news'
    publish new.xml updates.xml '2024-04-02 10:15:00 UTC'
    forget 'Last Checked'
    updater 0 'A newer listing'
    require_same local.xml new.xml
    forget 'Last Checked'
    updater 1 'An address that the server does not know' --site $site/none.xml
    forget 'Last Checked'
    updater 1 'A host that does not answer' --site http://127.0.0.2/updates.xml
    forget 'Last Checked'
    cancel
    require_same local.xml new.xml
}

place() { # place LISTING SIGNATURE DATE: at the site with HTTPS
    cp "$1" "$server/secure/updates.xml"
    cp "$2" "$server/secure/updates.xml.minisig"
    touch -d "$3" "$server/secure/updates.xml"
}

# Files that the publisher has signed, and files that others put in their place.
signed_checks() {
    rm -f local.xml
    forget
    secure=https://localhost:8443/updates.xml
    place old.xml old.xml.minisig '2024-03-12 08:31:00 UTC'
    updater 0 'A signed listing over HTTPS' --site $secure --https --key publisher.pub --yes
    require_same local.xml old.xml
    forget 'Last Checked'
    place new.xml forged.minisig '2024-04-02 10:15:00 UTC'
    updater 1 'A newer one that somebody else has signed' --https --key publisher.pub --yes
    forget 'Last Checked'
    place forged.xml new.xml.minisig '2024-04-02 10:15:00 UTC'
    updater 1 'A link in it was changed' --https --key publisher.pub --yes
    require_same local.xml old.xml
    forget 'Last Checked'
    place new.xml new.xml.minisig '2024-04-02 10:15:00 UTC'
    updater 0 'The newer one as it was signed, by a redirection from HTTP' --site $site/moved/updates.xml --https \
        --key publisher.pub --yes
    require_same local.xml new.xml
    forget 'Last Checked'
    place old.xml old.xml.minisig '2024-05-01 08:00:00 UTC'
    updater 1 'The old one, shown as new' --site $secure --https --key publisher.pub --yes
    require_same local.xml new.xml
}

# The same with the dialogs, on Windows only. Their texts are read from the windows.
windows() { # windows TITLE ARGUMENT...: of update_windows
    printf '\n== %s\n' "$1"
    shift
    echo "\$ update_windows '$key' local.xml $*"
    code=0
    program update_windows "$key" local.xml "$@" >output.txt 2>errors.txt || code=$?
    tr -d '\r' <output.txt
    [ $code = 0 ] || die "update_windows ended with $code: $(cat errors.txt)"
}

dialogs() {
    site_is() { program settings set "HKCU\\$key\\Check For Updates" URL "$1" >settings.txt 2>&1; }
    rm -f local.xml
    forget || true
    publish old.xml updates.xml '2024-03-12 08:31:00 UTC'
    windows 'Settings without a scheme are refused' settings 127.0.0.1/updates.xml 14
    windows 'Settings with too many days are refused' settings $site/updates.xml 91
    windows 'Settings that are stored' settings $site/updates.xml 14
    windows 'The first check' check
    require_same local.xml old.xml
    windows 'Another one at once' check
    forget 'Last Checked'
    windows 'Later, without news' check
    publish new.xml updates.xml '2024-04-02 10:15:00 UTC'
    forget 'Last Checked'
    windows 'A newer listing that the user does not want' check no
    require_same local.xml old.xml
    forget 'Last Checked'
    windows 'A newer listing' check
    require_same local.xml new.xml
    forget 'Last Checked'
    site_is $site/none.xml
    windows 'An address that the server does not know' check
    forget 'Last Checked'
    site_is http://127.0.0.2/updates.xml
    windows 'A host that does not answer' check
    forget 'Last Checked'
    publish new.xml slow/updates.xml '2024-04-02 10:16:00 UTC'
    site_is $site/slow/updates.xml
    windows 'Cancelled while it downloads' check cancel
    require_same local.xml new.xml
    windows 'Reset' reset
    [ ! -e local.xml ] || die "the local file is still there"
    windows 'A reminder that is dismissed' remind
    for version in 1.2.3.5 1.2.3.4 1.2.3.3; do
        printf $version >"$server/html/version.txt"
        forget 'Last Checked'
        site_is $site/version.txt
        windows "The site has version $version" version 1.2.3.4
    done
    forget
    site_is https://localhost:8443/updates.xml
    place old.xml old.xml.minisig '2024-03-12 08:31:00 UTC'
    windows 'A signed listing over HTTPS' --https --key publisher.pub check
    require_same local.xml old.xml
    forget 'Last Checked'
    place forged.xml new.xml.minisig '2024-04-02 10:15:00 UTC'
    windows 'A link in it was changed' --https --key publisher.pub check
    require_same local.xml old.xml
}

rm -rf "$demo"
mkdir -p "$demo"
cd "$demo"
cp "$root/examples/data/updates.xml" old.xml
cat >item.xml <<'EOF'
    <item>
      <title>Notebook 3.3</title>
      <link>http://www.example.com/notebook/3.3.html</link>
      <description>Notes are found as they are written.</description>
      <pubDate>Tue, 02 Apr 2024 10:00:00 GMT</pubDate>
      <priority>high</priority>
    </item>
EOF
sed -e '/<lastBuildDate>/ { s/>.*</>Tue, 02 Apr 2024 10:00:00 GMT</; r item.xml
}' old.xml >new.xml

sed 's|notebook/3.3|notebook/3.3.evil|' new.xml >forged.xml
build=linux
for name in publisher stranger; do program listing key $name; done
program listing sign new.xml --key stranger.key
mv new.xml.minisig forged.minisig
program listing sign old.xml --key publisher.key --serial 1
program listing sign new.xml --key publisher.key --serial 2

server=$(mktemp -d)
trap finish EXIT
trap 'exit 1' HUP INT TERM
make_certificates
start_server
trust add
for build in linux windows; do
    {
        checks
        signed_checks
    } >$build.txt
    # The time of day depends on the run.
    sed 's/^\(Last checked for updates on\) .*/\1 .../' $build.txt >$build.same.txt
done
cat linux.txt
if diff -u linux.same.txt windows.same.txt; then
    say "demo: both builds ($windows) print the same $(wc -l <linux.txt) lines of checks for updates"
else
    die "the Linux and the Windows build ($windows) print different lines, see build/demo-updates"
fi

build=windows
say "demo: the dialogs of the updates, worked by keys in the Windows build ($windows)"
dialogs
