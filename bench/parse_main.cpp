// idlexport_bench_parse FILE: loads a file into a document of pugixml and nothing else. What every
// figure about speed is compared with.
#include <iostream>
#include <pugixml.hpp>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  pugi::xml_document document;
  const pugi::xml_parse_result result = document.load_file(argv[1]);
  if (!result) std::cerr << argv[1] << ": " << result.description() << '\n';
  return result ? 0 : 1;
}
