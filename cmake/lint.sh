#!/usr/bin/env bash
# Checks formatting (clang-format 14) and runs clang-tidy 14 over the sources that the clang build
# knows, tests left out. Needs `cmake --preset clang` first.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t files < <(git ls-files '*.h' '*.cpp' '*.inc')
echo "clang-format: ${#files[@]} files"
clang-format-14 --dry-run --Werror "${files[@]}"

mapfile -t sources < <(git ls-files 'foundation/*.cpp' 'text/*.cpp' 'numeric/*.cpp' 'datetime/*.cpp' \
  'ddx/*.cpp'   'platform/*.cpp' 'tools/*.cpp' 'examples/*.cpp' |
  while IFS= read -r source; do
    if grep -qF "/$source\"" build/clang/compile_commands.json; then echo "$source"; fi
  done)
echo "clang-tidy: ${#sources[@]} files"
printf '%s\n' "${sources[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy-14 --quiet -p build/clang
