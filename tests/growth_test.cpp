// That no shape of model makes an export grow faster than the model does.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "bench/shapes.h"
#include "tests/support/cost.h"
#include "tests/support/export.h"
#include "tests/support/xmi_files.h"

namespace {

class Growth : public testing::TestWithParam<bench::Shape> {};

TEST_P(Growth, IsNoFasterThanTheModels) {
#ifdef __OPTIMIZE__
  constexpr std::size_t many = 64'000;
#else
  constexpr std::size_t many = 16'000;
#endif
  support::ExpectLinearCost(many, [](std::size_t members) {
    const support::ExportBench bench;
    support::XmiFiles files;
    std::ofstream out(files.Path("model.uml"));
    bench::WriteModel(GetParam(), members, out);
    out.close();
    return support::CostOf([&] {
      const auto said = bench.Run(files.Read().Reader().Artifacts().front()).Messages();
      EXPECT_NE(said.find("finished"), said.npos) << said.substr(0, 500);
    });
  });
}

INSTANTIATE_TEST_SUITE_P(Shapes, Growth, testing::ValuesIn(bench::Shapes()), [](const auto& shape) {
  return support::Replaced(std::string(shape.param.name), "-", "_");
});

}  // namespace
