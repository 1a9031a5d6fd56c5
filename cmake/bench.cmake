# Speed: the models that it is measured with, which the tests use too, the bare parser as the measure,
# and the benchmarks.

set(bench ${PROJECT_SOURCE_DIR}/bench)
add_library(idlexport_bench_models STATIC EXCLUDE_FROM_ALL
  ${bench}/mix.cpp ${bench}/plain_shapes.cpp ${bench}/shapes.cpp ${bench}/xmi_writer.cpp)

option(IDLEXPORT_BUILD_BENCH "Build the benchmarks" OFF)
if(NOT IDLEXPORT_BUILD_BENCH)
  return()
endif()

find_package(benchmark REQUIRED)

add_executable(idlexport_bench_model ${bench}/model_main.cpp)
target_link_libraries(idlexport_bench_model PRIVATE idlexport_bench_models)

add_executable(idlexport_bench_parse ${bench}/parse_main.cpp)
target_link_libraries(idlexport_bench_parse PRIVATE pugixml::pugixml)

add_executable(idlexport_bench ${bench}/benchmark_main.cpp)
target_link_libraries(idlexport_bench
  PRIVATE idlexport_bench_models idlexport_core idlxmi benchmark::benchmark)
