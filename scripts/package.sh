#!/usr/bin/env bash
# Builds the Debian package, checks it, and prints where it lies and how large it is: build/package/sumlet_*.deb.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

ensure_packages build gui package

# Debian's own compiler flags, which harden the programs. No debug information: it would not be packaged.
debian_flags() { DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CXXFLAGS_MAINT_STRIP=-g dpkg-buildflags --get "$1"; }

cd "$projectRoot"
build_preset package -DCMAKE_CXX_FLAGS="$(debian_flags CPPFLAGS) $(debian_flags CXXFLAGS)" \
  -DCMAKE_EXE_LINKER_FLAGS="$(debian_flags LDFLAGS)"

cd build/package
rm -f sumlet_*.deb
# The time of each packed file is that of the last commit, where there is one.
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || date +%s)} cpack -G DEB >cpack.log 2>&1 ||
  { cat cpack.log >&2; exit 1; }
package=$(echo "$PWD"/sumlet_*.deb)
lintian --allow-root --fail-on error "$package"
printf '%s (%d KiB)\n' "$package" "$(($(stat -c %s "$package") / 1024))"
