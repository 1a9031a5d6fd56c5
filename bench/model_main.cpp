// idlexport_bench_model SHAPE MEMBERS: writes a model to standard output.
#include <cstdlib>
#include <iostream>

#include "bench/shapes.h"

int main(int argc, char** argv) {
  const bench::Shape* shape = argc == 3 ? bench::FindShape(argv[1]) : nullptr;
  const long members = argc == 3 ? std::atol(argv[2]) : 0;
  if (shape == nullptr || members < 1) {
    std::cerr << "usage: idlexport_bench_model SHAPE MEMBERS\nshapes:";
    for (const bench::Shape& each : bench::Shapes()) std::cerr << ' ' << each.name;
    std::cerr << '\n';
    return 2;
  }
  std::ios::sync_with_stdio(false);
  bench::WriteModel(*shape, static_cast<std::size_t>(members), std::cout);
  return std::cout.flush() ? 0 : 1;
}
