// Compiled once for each folder of src/, with that folder's include path: it finds the headers of the
// folders that the folder may use, and of no other. SEES_... names those folders. clang-format off
#if __has_include("platform/exactness.h") != SEES_arithmetic
#error "platform/exactness.h is found where it should not be, or not where it should."
#endif
#if __has_include("platform/choose.h") != SEES_arithmetic
#error "platform/choose.h is found where it should not be, or not where it should."
#endif
#if __has_include("platform/allocation.h") != SEES_platform
#error "platform/allocation.h is found where it should not be, or not where it should."
#endif
#if __has_include("kernels/table.h") != SEES_kernels
#error "kernels/table.h is found where it should not be, or not where it should."
#endif
#if __has_include("portable_math/turn.h") != SEES_portable_math
#error "portable_math/turn.h is found where it should not be, or not where it should."
#endif
#if __has_include("frame/fatal_report.h") != SEES_frame
#error "frame/fatal_report.h is found where it should not be, or not where it should."
#endif
#if __has_include("containers/linked_list.cpp") != SEES_containers
#error "containers/linked_list.cpp is found where it should not be, or not where it should."
#endif
#if __has_include("graphics/lanes.h") != SEES_graphics
#error "graphics/lanes.h is found where it should not be, or not where it should."
#endif
#if __has_include("raw_buffers/rows.h") != SEES_raw_buffers
#error "raw_buffers/rows.h is found where it should not be, or not where it should."
#endif
#if __has_include("algorithms/least_finder.h") != SEES_algorithms
#error "algorithms/least_finder.h is found where it should not be, or not where it should."
#endif
#if __has_include("double_array/elements.h") != SEES_double_array
#error "double_array/elements.h is found where it should not be, or not where it should."
#endif
#if __has_include("linalg/row_table.h") != SEES_linalg
#error "linalg/row_table.h is found where it should not be, or not where it should."
#endif
#if __has_include("batch/arrays.h") != SEES_batch
#error "batch/arrays.h is found where it should not be, or not where it should."
#endif
#if __has_include("parallel/pool.h") != SEES_parallel
#error "parallel/pool.h is found where it should not be, or not where it should."
#endif
#if __has_include("platform.h") != SEES_platform_headers
#error "platform.h is found where it should not be, or not where it should."
#endif
#if __has_include("frame.h") != SEES_frame_headers
#error "frame.h is found where it should not be, or not where it should."
#endif
#if __has_include("containers.h") != SEES_containers_headers
#error "containers.h is found where it should not be, or not where it should."
#endif
#if __has_include("graphics.h") != SEES_graphics_headers
#error "graphics.h is found where it should not be, or not where it should."
#endif
#if __has_include("raw_buffers.h") != SEES_raw_buffers_headers
#error "raw_buffers.h is found where it should not be, or not where it should."
#endif
#if __has_include("algorithms.h") != SEES_algorithms_headers
#error "algorithms.h is found where it should not be, or not where it should."
#endif
#if __has_include("double_array.h") != SEES_double_array_headers
#error "double_array.h is found where it should not be, or not where it should."
#endif
#if __has_include("linalg.h") != SEES_linalg_headers
#error "linalg.h is found where it should not be, or not where it should."
#endif
#if __has_include("batch.h") != SEES_batch_headers
#error "batch.h is found where it should not be, or not where it should."
#endif
#if __has_include("parallel.h") != SEES_parallel_headers
#error "parallel.h is found where it should not be, or not where it should."
#endif
#if __has_include("ZEPHDataStructureEngine.h") != SEES_everything
#error "ZEPHDataStructureEngine.h is found where it should not be, or not where it should."
#endif
