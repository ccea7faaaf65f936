#!/bin/sh
# imports.sh LIBRARY PLATFORM_EXPORTS - the library needs the names of syss.h, the C and mathematical
# runtime and the unwinder, and nothing else; of the runtime neither the heap nor the thread-locals.
set -eu
library=$1 platform=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
LC_ALL=C
export LC_ALL

grep -v '^SYSS_' "$platform" > "$work/services"
"$NM" -D --undefined-only "$library" | awk '{ print $NF }' > "$work/needed"
[ -s "$work/needed" ] || { echo "$library needs nothing: not a library of ours?"; exit 1; }

# What the toolchain adds, what lets an exception of the platform pass, and what stops one that comes
# while another passes.
cat > "$work/toolchain" <<'NAMES'
_ITM_deregisterTMCloneTable
_ITM_registerTMCloneTable
__gmon_start__
_Unwind_Resume@GCC_3.0
__cxa_begin_catch@CXXABI_1.3
__gxx_personality_v0@CXXABI_1.3
_ZSt9terminatev@GLIBCXX_3.4
NAMES
grep -vxFf "$work/services" "$work/needed" | grep -vxFf "$work/toolchain" > "$work/rest" || true

status=0
if grep -v '@GLIBC_' "$work/rest"; then
    echo "above: needed from outside the platform and the C runtime"
    status=1
fi
heap='malloc|calloc|realloc|reallocarray|free|aligned_alloc|memalign|posix_memalign|strdup|strndup'
heap="$heap|asprintf|vasprintf|getline|__tls_get_addr|__cxa_thread_atexit_impl"
if grep -E "^($heap)@" "$work/rest"; then
    echo "above: heap or thread-local data of the process"
    status=1
fi
exit $status
