# What is shipped is built with what Debian builds its own programs with: the damage of mistakes that
# nobody has found yet is limited.
if(NOT APPLE AND NOT SANITIZE)
  add_compile_options($<$<CONFIG:Release>:-fstack-protector-strong>)
  add_compile_definitions($<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
  add_link_options($<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
endif()
