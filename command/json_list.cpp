#include "command/json_list.h"

namespace command {

std::string JsonText(const nlohmann::ordered_json& value) {
  return value.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

std::string JsonWithList(const nlohmann::ordered_json& frame, std::size_t count,
                         const std::function<nlohmann::ordered_json(std::size_t)>& item) {
  std::string text = JsonText(frame);
  const std::size_t end = text.rfind("[]") + 1;
  const std::string closing = text.substr(end);
  text.resize(end);
  for (std::size_t i = 0; i < count; ++i) {
    text.append(i == 0 ? "\n" : ",\n").append(JsonText(item(i)));
  }
  if (count != 0) text += '\n';
  return text.append(closing).append("\n");
}

}  // namespace command
