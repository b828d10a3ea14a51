#!/usr/bin/env bash
# Installs the package into a tree of its own, works both programs from there, and removes it again:
# installed_test.sh FOLDER, the one of the package. Status 77 where a tool that this needs is missing.
source "$(dirname "${BASH_SOURCE[0]}")/../system/desktop.sh"
skip_without dpkg dpkg-shlibdeps file fakeroot appstreamcli identify

package=$(echo "$1"/*.deb)
tree=$virtualFolder/tree
asRoot=()
if ((EUID != 0)); then asRoot=(fakeroot); fi

# The tree has no libraries, so those of this system are used. The system's own settings, such as a log, or leaving out
# documents, are not for the tree.
manage_package() {
  PATH=$PATH:/usr/sbin:/sbin "${asRoot[@]}" dpkg --root="$tree" --log="$virtualFolder/packages.log" --path-include='*' \
    --force-not-root --force-script-chrootless --force-depends "$@" >"$virtualFolder/dpkg.log" 2>&1 || give_up "dpkg $* fails"
}

# expect WHAT WANTED FOUND
expect() { [[ $2 == "$3" ]] || give_up "$1: expected '$2', but it is '$3'"; }

mkdir -p "$tree"/var/lib/dpkg/{info,updates}
: >"$tree/var/lib/dpkg/status"
manage_package --install "$package"

bin=$tree/usr/bin
share=$tree/usr/share
expect "an installed example" 84 "$("$bin/sumlet-eval" "$share/doc/sumlet/examples/triangle.txt")"
depends=$(dpkg-deb --field "$package" Depends)
for library in libc6 libqt6widgets6 libutf8proc2; do
  [[ ", $depends" == *", $library "* ]] || give_up "$library is missing in what it depends on: $depends"
done

version=$("$bin/sumlet-eval" --version)
version=${version#sumlet-eval }
metainfo=$share/metainfo/com.fernhill.sumlet.metainfo.xml
expect "version of the package" "$version" "$(dpkg-deb --field "$package" Version)"
expect "latest release in the metainfo" "$version" "$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$metainfo" | head -n 1)"
expect "version in the changelog" "sumlet ($version)" "$(zcat "$share/doc/sumlet/changelog.gz" | sed -n '1s/ unstable.*//p')"

entry=$share/applications/com.fernhill.sumlet.desktop
entry_value() { sed -n "s/^$1=//p" "$entry"; }
appstreamcli validate-tree --no-net --pedantic "$tree" >"$virtualFolder/metainfo.log" || give_up "the tree's metainfo is wrong"
icons=$share/icons/hicolor
icon=$(entry_value Icon)
for size in 16 24 32 48 64 128 256; do
  expect "icon" "${size}x$size" "$(identify -format %wx%h "$icons/${size}x$size/apps/$icon.png")"
done
for file in "$icons/scalable/apps/$icon.svg" "$icons/symbolic/apps/$icon-symbolic.svg"; do
  expect "kind of $file" image/svg+xml "$(file --brief --mime-type "$file")"
done

# The desktop's way to the program, and from its window back to the entry.
exec=$(entry_value Exec)
start_window "$bin/${exec% %F}"
open_equation
type_keys 6*7
press Tab
expect_text 42
class=$(entry_value StartupWMClass)
expect "class of the window" "WM_CLASS(STRING) = \"$class\", \"$class\"" "$(xprop -id "$window" WM_CLASS)"
quit TERM

manage_package --purge sumlet
left=$(find "$tree" -mindepth 1 -not -path "$tree/var*" -o -path '*/info/*' -not -name format)
expect "what is left" "" "$left"
if grep -q sumlet "$tree/var/lib/dpkg/status"; then give_up "it is still known"; fi
