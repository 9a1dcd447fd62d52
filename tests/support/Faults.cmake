# The system calls that Faults can make fail. VEXMOOR_FAULT_OPTIONS redirects them to its wrappers.
set(VEXMOOR_FAULT_OPTIONS)
foreach(call IN ITEMS openat openat64 open open64 write pwrite pwrite64 close renameat2 renameat rename linkat
                      unlinkat unlink mkdirat mkdir statx fdatasync)
  list(APPEND VEXMOOR_FAULT_OPTIONS -Wl,--wrap=${call})
endforeach()
