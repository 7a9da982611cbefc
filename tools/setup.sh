#!/bin/sh
# Installs what is missing on Debian for one of our commands: tools/setup.sh demo|check|ci|windows|coverage
# Where nothing is missing it does nothing; where there is no Debian it only says what to have.
set -eu

demo="g++ cmake ninja-build ccache libcairo2-dev libcli11-dev"
check="$demo libgtest-dev libgmock-dev libbenchmark-dev libcereal-dev libre2-dev libglm-dev libnanoflann-dev
    libeigen3-dev libfcl-dev gfortran python3 python3-dev python3-numpy python3-pytest pybind11-dev gdb locales
    dpkg-dev file pkgconf doxygen"
case ${1-} in
demo) wanted=$demo ;;
check) wanted=$check ;;
ci) wanted="$check git clang libclang-rt-dev clang-format clang-tidy shellcheck" ;;
windows) wanted="cmake ninja-build ccache g++-mingw-w64-x86-64-posix googletest wine wine64" ;;
coverage) wanted="$check gcovr" ;;
*)
    echo "usage: $0 demo|check|ci|windows|coverage" >&2
    exit 2
    ;;
esac

if ! command -v dpkg-query >/dev/null; then
    echo "Not a Debian system; these packages by other names are needed: $wanted" >&2
    exit 0
fi

missing=
for package in $wanted; do
    state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) || state=
    [ "$state" = installed ] || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

as_root=
[ "$(id -u)" -eq 0 ] || as_root=sudo
export DEBIAN_FRONTEND=noninteractive
echo "Installing:$missing"
$as_root apt-get update -qq
# One word a package is meant here.
# shellcheck disable=SC2086
$as_root apt-get install -qq -y --no-install-recommends $missing
