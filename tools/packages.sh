# Sourced by the scripts: makes sure of Debian packages, fetching only those that are missing.

build_packages="g++ cmake ninja-build pkg-config libsqlite3-dev unixodbc-dev libcli11-dev libisal-dev zlib1g-dev
  qt6-base-dev libcups2-dev qt6-webengine-dev qt6-pdf-dev libqpdf-dev"
run_packages="fonts-liberation2 fonts-liberation"
test_packages="libgtest-dev python3-openpyxl python3-xlrd dpkg-dev file cups poppler-utils libsqliteodbc odbc-postgresql postgresql clang-format clang-tidy zsh fish groff"

need_packages() {
  local missing=()
  local package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  local root=""
  [ "$(id -u)" -eq 0 ] || root="sudo"
  echo "Installing: ${missing[*]}"
  $root apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $root apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" >/dev/null
}
