# Project-wide compile settings: warnings are errors, Qt without its keyword macros
# (glib's `signals` clashes with Qt's), optional sanitizers.
add_compile_definitions(QT_NO_KEYWORDS)
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)

if(VISTREL_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# In the fuzz build every library is instrumented for coverage, so libFuzzer sees the
# parsers it drives and not only its own harness.
if(VISTREL_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# The hardening Debian builds its packages with: stack protection, checked string and
# memory calls (they need optimisation), and relocations made read-only at start.
if(NOT VISTREL_SANITIZE AND NOT VISTREL_FUZZ)
  add_compile_options(-fstack-protector-strong $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
  add_link_options(-Wl,-z,relro -Wl,-z,now)
endif()
