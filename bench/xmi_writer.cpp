#include "bench/xmi_writer.h"

#include <cstdint>

namespace bench {

XmiWriter::XmiWriter(std::ostream& out) : out_(out) {
  out_ << R"(<?xml version="1.0" encoding="UTF-8"?>
<xmi:XMI xmi:version="20131001" xmlns:xmi="http://www.omg.org/spec/XMI/20131001" )"
          R"(xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" )"
          R"(xmlns:CORBA="http://idlexport/schemas/CORBA/1" )"
          R"(xmlns:uml="http://www.eclipse.org/uml2/5.0.0/UML">
)";
  open_.emplace_back("xmi:XMI");
  Open("uml:Model", "", "model");
}

/// As long and as even as the ids that tools make: 22 letters of 64 kinds, all over the place.
std::string XmiWriter::IdOf(std::size_t number) {
  constexpr std::string_view letters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
  std::uint64_t mixed = number;
  std::string id = "_";
  for (int half = 0; half < 2; ++half) {
    mixed = (mixed ^ (mixed >> 31)) * 0x9e3779b97f4a7c15u;
    mixed ^= mixed >> 29;
    for (int letter = 0; letter < 11; ++letter) id += letters[(mixed >> (5 * letter)) % 64];
  }
  return id;
}

void XmiWriter::Indent() { out_ << std::string(2 * open_.size(), ' '); }

void XmiWriter::BeginTag(std::string_view tag, std::string_view type, std::string_view id,
                         std::string_view name, std::string_view attributes) {
  Indent();
  out_ << '<' << tag;
  if (!type.empty()) out_ << " xmi:type=\"uml:" << type << '"';
  out_ << " xmi:id=\"" << id << '"';
  if (!name.empty()) out_ << " name=\"" << name << '"';
  out_ << attributes;
}

std::string XmiWriter::Open(std::string_view tag, std::string_view type, std::string_view name,
                            std::string_view attributes) {
  std::string id = NewId();
  BeginTag(tag, type, id, name, attributes);
  out_ << ">\n";
  open_.emplace_back(tag);
  return id;
}

void XmiWriter::Close() {
  const std::string tag = open_.back();
  open_.pop_back();
  Indent();
  out_ << "</" << tag << ">\n";
}

std::string XmiWriter::Empty(std::string_view tag, std::string_view type, std::string_view name,
                             std::string_view attributes) {
  std::string id = NewId();
  BeginTag(tag, type, id, name, attributes);
  out_ << "/>\n";
  return id;
}

void XmiWriter::PredefinedType(std::string_view type) {
  Indent();
  out_ << R"(<type xmi:type="uml:PrimitiveType" href="../profile/CORBA.library.uml#)" << type
       << "\"/>\n";
}

void XmiWriter::Comment(std::string_view text) {
  Open("ownedComment", "", "");
  Indent();
  out_ << "<body>" << text << "</body>\n";
  Close();
}

void XmiWriter::Apply(std::string_view stereotype, std::string_view metaclass, std::string_view id,
                      std::string_view tags) {
  applications_.append("  <CORBA:").append(stereotype).append(" xmi:id=\"").append(NewId());
  applications_.append("\" base_").append(metaclass).append("=\"").append(id).append("\"");
  applications_.append(tags).append("/>\n");
}

void XmiWriter::Finish(const std::vector<std::string>& packages, std::string_view mapping) {
  const std::string artifact = Open("packagedElement", "Artifact", "all");
  for (const std::string& package : packages) {
    Empty("manifestation", "", "",
          " client=\"" + artifact + "\" supplier=\"" + package + "\" utilizedElement=\"" + package +
              "\"");
  }
  Close();
  Close();
  Apply("IDLGenerator", "Artifact", artifact,
        " targetDir=\"idl\" fileName=\"model\" fileMapping=\"" + std::string(mapping) + "\"");
  out_ << applications_;
  Close();
}

std::string TypeOf(std::string_view id) { return " type=\"" + std::string(id) + "\""; }

}  // namespace bench
