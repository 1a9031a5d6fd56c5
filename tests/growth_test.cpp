// That no shape of model makes an export grow faster than the model does.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

#include "agent/export_run.h"
#include "bench/shapes.h"
#include "model/model.h"
#include "tests/support/file_tree.h"
#include "xmi/reader.h"

namespace {

/// The processor time, of this process alone, for reading a model of a shape and exporting it.
std::clock_t CostOf(const bench::Shape& shape, std::size_t members,
                    const std::filesystem::path& directory) {
  const std::filesystem::path file = directory / "model.uml";
  std::ofstream out(file);
  bench::WriteModel(shape, members, out);
  out.close();
  const std::clock_t start = std::clock();
  model::Model model;
  xmi::Reader reader(model);
  reader.Read(file.string());
  std::string said;
  model::SetMessageSink([&said](const std::string& text) { said += text; });
  const auto previous = std::filesystem::current_path();
  std::filesystem::current_path(directory);
  mdktoidl::RunExport(reader.Artifacts().front());
  std::filesystem::current_path(previous);
  model::SetMessageSink({});
  EXPECT_NE(said.find("finished"), said.npos) << said.substr(0, 500);
  return std::clock() - start;
}

class Growth : public testing::TestWithParam<bench::Shape> {};

TEST_P(Growth, IsNoFasterThanTheModels) {
#ifdef __OPTIMIZE__
  constexpr std::size_t few = 4'000;
#else
  constexpr std::size_t few = 1'000;
#endif
  constexpr std::size_t times = 16;
  constexpr std::clock_t margin = 4;  // what grows with the square would take sixteen times more
  const support::ScratchDirectory scratch;
  const auto cost = [&scratch](std::size_t members) {
    return std::min(CostOf(GetParam(), members, scratch.Path()),
                    CostOf(GetParam(), members, scratch.Path()));
  };
  EXPECT_LT(cost(times * few), margin * static_cast<std::clock_t>(times) * cost(few));
}

INSTANTIATE_TEST_SUITE_P(Shapes, Growth, testing::ValuesIn(bench::Shapes()), [](const auto& shape) {
  return support::Replaced(std::string(shape.param.name), "-", "_");
});

}  // namespace
