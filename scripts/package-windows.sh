#!/usr/bin/env bash
# Packs the cross-built tamrix-cli.exe with the README (and the licence, when the
# checkout has one) into dist/tamrix-VERSION-windows-x86_64.zip. Runs on Linux:
# builds build-windows first when tamrix-cli.exe is not there.
set -euo pipefail
cd "$(dirname "$0")/.."
exe=build-windows/src/cli/tamrix-cli.exe
if [ ! -f "$exe" ]; then
    cmake -S . -B build-windows -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-x86_64.cmake \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE=-O2 -DTAMRIX_BUILD_GUI=OFF \
        -DTAMRIX_BUILD_TESTS=OFF >/dev/null
    ninja -C build-windows -j2 tamrix-cli
fi
if ! command -v zip >/dev/null; then
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq zip >/dev/null
fi
version=$(sed -n 's/^project(Tamrix VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
name="tamrix-$version-windows-x86_64"
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
mkdir -p "$stage/$name" dist
cp "$exe" "$stage/$name/"
# Windows readers expect CR LF line ends.
sed 's/$/\r/' README.md >"$stage/$name/README.txt"
licence=$(ls LICENSE* LICENCE* COPYING* 2>/dev/null | head -1 || true)
if [ -n "$licence" ]; then
    sed 's/$/\r/' "$licence" >"$stage/$name/LICENSE.txt"
else
    echo "warning: no LICENSE file in the checkout; the zip has none" >&2
fi
rm -f "dist/$name.zip"
(cd "$stage" && zip -qr -X "$OLDPWD/dist/$name.zip" "$name")
echo "dist/$name.zip:"
unzip -l "dist/$name.zip" | sed -n '4,$p'
