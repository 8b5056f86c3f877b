# Sourced by scripts/macos-check: headers and libraries to compile against.

# Gives a folder or git repository the shape of an SDK. Mirrors of the platform's public headers have
# Frameworks/, include/ and lib/ at the top; an SDK has all of that deeper down.
#   shape_sdk SOURCE OUT
shape_sdk() {
  local source=$1 out=$2 versions letter header stub state
  state="$source, $(git -C "$source" rev-parse HEAD 2>/dev/null || find "$source" -maxdepth 2 -printf '%P %T@ ' | cksum)"
  [[ -e $out/.from && $(<"$out/.from") == "$state" ]] && return
  rm -rf "$out"
  mkdir -p "$out/usr" "$out/System/Library"
  if [[ -d $source/System/Library/Frameworks && -d $source/usr/include && -d $source/usr/lib ]]; then
    cp -R "$source/System/Library/Frameworks" "$out/System/Library/"
    cp -R "$source/usr/include" "$source/usr/lib" "$out/usr/"
  else
    mkdir "$out/mirror"
    if [[ -d $source/Frameworks && -d $source/include && -d $source/lib ]]; then
      cp -R "$source/Frameworks" "$source/include" "$source/lib" "$out/mirror/"
    else
      git -C "$source" archive HEAD Frameworks include lib 2>"$out/log" | tar -x -C "$out/mirror" 2>>"$out/log" ||
        fail "$source is neither an SDK nor a mirror of one, as a folder or git repository; it must have Frameworks, include and lib: $(head -n 1 "$out/log")"
    fi
    mv "$out/mirror/Frameworks" "$out/System/Library/"
    mv "$out/mirror/include" "$out/mirror/lib" "$out/usr/"
    # Headers and stubs name the versions of frameworks that an SDK has.
    find "$out/System/Library/Frameworks" -type d -name Versions | while read -r versions; do
      for letter in A B C; do
        [[ -e $versions/$letter ]] || ln -s Current "$versions/$letter"
      done
    done
  fi
  for header in System/Library/Frameworks/Cocoa.framework usr/include/cups/ppd.h usr/include/c++/v1/string; do
    [[ -e $out/$header ]] || fail "$source has no ${header##*/}, which stands in every SDK"
  done
  # What mirrors lack: the C and C++ libraries' names, and libcups.
  for stub in "$project"/cmake/toolchains/stubs/*.tbd; do
    [[ -e $out/usr/lib/${stub##*/} ]] || ln -s "$stub" "$out/usr/lib/"
  done
  printf %s "$state" >"$out/.from"
}

# The libraries that tests and the generator use, for the same machine as the bundle.
#   build_libraries TOOLCHAIN SDK OUT
build_libraries() {
  local out=$3
  [[ $out/.complete -nt $2/.from ]] && return
  rm -rf "$out"
  mkdir -p "$out/include" "$out/share/cmake"
  cp -R /usr/include/nlohmann "$out/include/"
  cp -R /usr/share/cmake/nlohmann_json "$out/share/cmake/"
  { cmake -S /usr/src/googletest -B "$out/googletest" -G Ninja --toolchain "$1" -DMACOS_SDK="$2" \
      -DCMAKE_OSX_ARCHITECTURES='arm64;x86_64' -DCMAKE_OSX_DEPLOYMENT_TARGET=12.0 \
      -DBUILD_GMOCK=ON -DCMAKE_INSTALL_PREFIX="$out" &&
      cmake --build "$out/googletest" --target install; } >"$out/log" 2>&1 ||
    { cat "$out/log" >&2; fail "GoogleTest could not be built for macOS"; }
  touch "$out/.complete"
}
