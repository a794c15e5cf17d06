# Sourced by tests/package. Installs the package in a Debian 12 that has nothing else, works with it under an X server in
# memory, removes it, and looks at what is left.

# What is done inside, as root of the new system, the package under /lantos.deb.
package_life() {
  cat <<'INSIDE'
set -eu
export DEBIAN_FRONTEND=noninteractive HOME=/root LC_ALL=C.UTF-8
fail() { echo "package: $*" >&2; exit 1; }
# Of the system itself, without what dpkg and apt note for themselves.
everything() { find / -xdev \( -path /proc -o -path /sys -o -path /dev -o -path /tmp -o -path /run -o -path /var/lib/dpkg \
  -o -path /var/lib/apt -o -path /var/cache -o -path /var/log \) -prune -o -print | sort; }

apt-get install -y -qq --no-install-recommends $(dpkg-deb -f /lantos.deb Depends | tr ',|' '\n\n' | sed 's/ *(.*//; s/ //g' | sort -u) >/dev/null
everything >/tmp/before
dpkg -i /lantos.deb >/dev/null
for program in lantos lantos-drive lantos-shop; do "$program" --version; done
lantos-shop sample /tmp/shop --customers 20 --vehicles 30 --parts 50 --estimates 10

Xvfb :99 -screen 0 1280x1024x24 >/dev/null 2>&1 &
screen=$!
export DISPLAY=:99
for _ in $(seq 50); do [ -e /tmp/.X11-unix/X99 ] && break; sleep 0.1; done
lantos /D=/tmp/shop & program=$!
for _ in $(seq 100); do xwininfo -root -tree | grep -q '"Lantos: ' && break; sleep 0.1; done
xwininfo -root -tree | grep '"Lantos: .*("lantos" "lantos")' || fail "the board doesn't come up under the name that the menu entry tells"
kill "$program"; wait "$program" || fail "the program doesn't end in order"

# The guide in its window, its PDF by the menu (here is nothing that shows PDFs, but it is found), and a paper.
printf '%s\n' '{"do": "key", "key": "F1"}' '{"get": "frmGuide.page"}' '{"do": "close"}' \
    '{"do": "menu", "item": "mnuHQuickStartGuide"}' '{"do": "key", "key": "Ctrl+Alt+P"}' '{"do": "close"}' |
  lantos-drive --desktop qt --settings /tmp/settings --print-to /tmp/printed -- /D=/tmp/shop >/tmp/answers
wrong() { cat /tmp/answers; fail "$*"; }
grep -q '"caption":"Guide - The board"' /tmp/answers || wrong "F1 doesn't open the guide"
grep -q '"shell":"/usr/share/lantos/guide/Lantos Quick Start Guide.pdf"' /tmp/answers || wrong "the guide's PDF isn't opened"
head -c 5 "/usr/share/lantos/guide/Lantos Quick Start Guide.pdf" | grep -q '%PDF-' || wrong "the guide is no PDF"
head -c 5 /tmp/printed/*.pdf | grep -q '%PDF-' || wrong "no PDF was printed"
grep -q '"error"' /tmp/answers && wrong "something was refused"
kill "$screen"; wait "$screen" || true

dpkg --purge lantos >/dev/null
everything | grep -v '^/root\(/\.\|$\)' >/tmp/after
grep -v '^/root\(/\.\|$\)' /tmp/before | diff - /tmp/after || fail "something was left behind"
echo 'Nothing is left but what is the person'"'"'s own.'
INSIDE
}

in_a_clean_root() {
  local package=$1 script=$2.sh
  printf 'Installed, used and removed in a clean root\n'
  package_life >"$script"
  # What a power cut would lose is of no use afterwards.
  mmdebstrap --dpkgopt=force-unsafe-io --variant=minbase --format=null --include=xvfb,x11-utils \
    --customize-hook="copy-in $script /" --customize-hook="upload $package /lantos.deb" \
    --customize-hook="chroot \"\$1\" bash /$(basename "$script")" bookworm /dev/null >"$script.log" 2>&1 || { tail -40 "$script.log"; return 1; }
  tail -n +1 "$script.log" | grep -v "^[IW]:\|^debconf"
}
