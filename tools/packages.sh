# Sourced by ./run and ./test: sees to it that the Debian packages given are installed.

# What building and running the program needs, and what testing needs besides.
program_packages=(
  g++ cmake ninja-build
  qt6-base-dev qt6-svg-dev
  fonts-liberation fonts-urw-base35 fonts-dejavu-core
)
test_packages=(libgtest-dev ccache)

install_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return

  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "These packages are missing, and there is no sudo: ${missing[*]}" >&2; exit 1; }
    as_root=(sudo)
  fi
  echo "Installing packages: ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
