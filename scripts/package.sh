#!/usr/bin/env bash
# Builds the Debian source package and the binary packages, checks them, and prints their paths.
#
#   scripts/package.sh [FOLDER]     the default is build/package
#
# Builds are reproducible: the same sources result in the same bytes in any folder.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

ensure_packages build gui package

folder=$(realpath -m "${1:-$projectRoot/build/package}")
version=$(dpkg-parsechangelog --file "$projectRoot/debian/changelog" --show-field Version)
tree=$folder/sumlet-$version
rm -rf "$tree" "$folder"/sumlet*
mkdir -p "$tree"

# Packs the tracked files, with uncommitted changes; without a repository, all files except the builds.
tracked() { git ls-files -z 2>/dev/null || find . -path ./build -prune -o -type f -print0; }
cd "$projectRoot"
tracked | tar --create --null --files-from=- | tar --extract --directory "$tree"
# The source package contains the times and permissions of its files, so they must not vary.
find "$tree" -exec touch --no-dereference --date "@$(dpkg-parsechangelog --show-field Timestamp)" {} +
chmod -R u=rwX,go=rX "$tree"

# debhelper sets another HOME for the build, in which ccache would find nothing.
if command -v ccache >/dev/null; then export CCACHE_DIR=${CCACHE_DIR:-$HOME/.cache/ccache}; fi
cd "$tree"
dpkg-buildpackage --unsigned-source --unsigned-changes >"$folder/build.log" 2>&1 || { tail -n 40 "$folder/build.log" >&2; exit 1; }
rm -rf "$tree"
cd "$folder"
lintian --allow-root --fail-on error,warning ./*.changes

# A package has to work when it is installed into an empty tree, and leave nothing behind when it is removed.
asRoot=()
if ((EUID != 0)); then asRoot=(fakeroot); fi
manage_package() {
  PATH=$PATH:/usr/sbin:/sbin "${asRoot[@]}" dpkg --root="$tree" --log="$folder/dpkg.log" --path-include='*' \
    --force-not-root --force-script-chrootless --force-depends "$@" >"$folder/dpkg.out" 2>&1 || { cat "$folder/dpkg.out" >&2; return 1; }
}
mkdir -p "$tree"/var/lib/dpkg/{info,updates}
: >"$tree/var/lib/dpkg/status"
manage_package --install sumlet_*.deb
appstreamcli validate-tree --no-net --pedantic "$tree"
[[ $("$tree/usr/bin/sumlet-eval" "$tree/usr/share/doc/sumlet/examples/triangle.txt") == 84 ]]
manage_package --purge sumlet
[[ -z $(find "$tree" -mindepth 1 -not -path "$tree/var*") ]]
rm -r "$tree"

for package in "$folder"/*.deb "$folder"/*.dsc; do
  printf '%s (%d KiB)\n' "$package" "$(($(stat -c %s "$package") / 1024))"
done
