# Debian packages by what they are for, and how to get them. Sourced by ./run and ./test.
build_packages=(g++ cmake ninja-build pkg-config libfmt-dev nlohmann-json3-dev libcli11-dev libsqlitecpp-dev
  libsqlite3-dev libpq-dev libarchive-dev nettle-dev libhunspell-dev ccache)
window_packages=(qt6-base-dev libqt6opengl6-dev libgl-dev libegl-dev libvulkan-dev fonts-liberation hunspell-en-us)
demo_packages=(python3 poppler-utils)
test_packages=(python3 python3-pytest python3-pytest-xdist poppler-utils libgtest-dev libgmock-dev clang lld libclang-rt-14-dev
  clang-format universal-ctags clang-tidy cppcheck xvfb openbox xdotool imagemagick postgresql mdbtools
  hunspell hunspell-en-gb)
package_packages=(dpkg-dev lintian desktop-file-utils appstream mmdebstrap python3)
bench_packages=(libbenchmark-dev)

# Installs those of its arguments that aren't there yet; as another user than root through sudo.
install_missing() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  printf 'Installing: %s\n' "${missing[*]}"
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}
