#include "pdf_outline.h"

#include <cstdio>
#include <fstream>
#include <regex>
#include <sstream>

namespace manual {

namespace {

// The dictionary that starts at `from` ("<<"), nested ones included.
std::string dictionary_at(const std::string& pdf, size_t from) {
  int depth = 0;
  for (size_t i = from; i + 1 < pdf.size(); ++i) {
    if (pdf.compare(i, 2, "<<") == 0) {
      ++depth;
      ++i;
    } else if (pdf.compare(i, 2, ">>") == 0) {
      ++i;
      if (--depth == 0) return pdf.substr(from, i + 1 - from);
    }
  }
  return {};
}

// The dictionary of object `number`; empty when the file has no such object.
std::string object_dictionary(const std::string& pdf, int number) {
  const std::string head = "\n" + std::to_string(number) + " 0 obj";
  const size_t at = pdf.rfind(head);
  if (at == std::string::npos) return {};
  const size_t open = pdf.find("<<", at);
  return open == std::string::npos ? std::string() : dictionary_at(pdf, open);
}

int reference(const std::string& dictionary, const std::string& key) {
  std::smatch m;
  const std::regex pattern("/" + key + R"(\s+(\d+)\s+0\s+R)");
  return std::regex_search(dictionary, m, pattern) ? std::stoi(m[1]) : 0;
}

// A text string of the outline: UTF-16BE with its byte-order mark, written in hex.
std::string pdf_text(const std::string& utf8) {
  std::string out = "<FEFF";
  char hex[8];
  for (size_t i = 0; i < utf8.size();) {
    unsigned c = static_cast<unsigned char>(utf8[i]);
    int extra = c >= 0xF0 ? 3 : c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : 0;
    unsigned code = extra == 0 ? c : c & (0x3F >> extra);
    for (int k = 1; k <= extra && i + k < utf8.size(); ++k)
      code = (code << 6) | (static_cast<unsigned char>(utf8[i + k]) & 0x3F);
    i += extra + 1;
    if (code >= 0x10000) {
      code -= 0x10000;
      std::snprintf(hex, sizeof hex, "%04X", 0xD800 + (code >> 10));
      out += hex;
      code = 0xDC00 + (code & 0x3FF);
    }
    std::snprintf(hex, sizeof hex, "%04X", code);
    out += hex;
  }
  return out + ">";
}

struct Node {
  int parent = -1;  // index into the nodes, -1 for the outline's root
  int first = -1, last = -1, prev = -1, next = -1, children = 0;
};

}  // namespace

bool add_outline(const std::string& pdf_path, const std::vector<OutlineEntry>& entries,
                 std::string& error) {
  std::string pdf;
  {
    std::ifstream in(pdf_path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    pdf = text.str();
  }
  const size_t start = pdf.rfind("startxref");
  const size_t trailer_at = pdf.rfind("trailer");
  if (start == std::string::npos || trailer_at == std::string::npos) {
    error = "no cross-reference table";
    return false;
  }
  const long previous = std::atol(pdf.c_str() + start + 9);
  const std::string trailer = dictionary_at(pdf, pdf.find("<<", trailer_at));
  std::smatch m;
  if (!std::regex_search(trailer, m, std::regex(R"(/Size\s+(\d+))"))) {
    error = "no /Size in the trailer";
    return false;
  }
  const int size = std::stoi(m[1]);
  const int root = reference(trailer, "Root"), info = reference(trailer, "Info");
  std::string catalog = object_dictionary(pdf, root);
  const std::string pages = object_dictionary(pdf, reference(catalog, "Pages"));
  std::vector<int> page_objects;
  const size_t kids = pages.find("/Kids");
  if (catalog.empty() || kids == std::string::npos) {
    error = "no catalog or page tree";
    return false;
  }
  const std::string list = pages.substr(kids, pages.find(']', kids) - kids);
  const std::regex ref(R"((\d+)\s+0\s+R)");
  for (auto it = std::sregex_iterator(list.begin(), list.end(), ref); it != std::sregex_iterator();
       ++it)
    page_objects.push_back(std::stoi((*it)[1]));
  double height = 841.89;
  const std::string first_page =
      page_objects.empty() ? std::string() : object_dictionary(pdf, page_objects[0]);
  if (std::regex_search(first_page, m,
                        std::regex(R"(/MediaBox\s*\[\s*\S+\s+\S+\s+\S+\s+([\d.]+))")))
    height = std::stod(m[1]);

  // The tree: each entry under the nearest entry before it of a lower level.
  std::vector<Node> nodes(entries.size());
  Node top;
  for (size_t i = 0; i < entries.size(); ++i) {
    int parent = static_cast<int>(i) - 1;
    while (parent >= 0 && entries[parent].level >= entries[i].level) parent = nodes[parent].parent;
    nodes[i].parent = parent;
    Node& owner = parent < 0 ? top : nodes[parent];
    if (owner.last >= 0) {
      nodes[owner.last].next = static_cast<int>(i);
      nodes[i].prev = owner.last;
    } else {
      owner.first = static_cast<int>(i);
    }
    owner.last = static_cast<int>(i);
    ++owner.children;
  }
  const int outlines = size;
  const auto object_of = [&](int node) { return node < 0 ? outlines : outlines + 1 + node; };

  std::vector<std::pair<int, size_t>> offsets;
  std::string update = "\n";
  const auto add = [&](int number, const std::string& body) {
    offsets.emplace_back(number, pdf.size() + update.size());
    update += std::to_string(number) + " 0 obj\n" + body + "\nendobj\n";
  };
  catalog =
      std::regex_replace(catalog, std::regex(R"(/(Outlines|PageMode)\s+(\d+\s+0\s+R|/\w+))"), "");
  add(root, catalog.substr(0, catalog.size() - 2) + " /Outlines " + std::to_string(outlines) +
                " 0 R /PageMode /UseOutlines >>");
  add(outlines, "<< /Type /Outlines /First " + std::to_string(object_of(top.first)) +
                    " 0 R /Last " + std::to_string(object_of(top.last)) + " 0 R /Count " +
                    std::to_string(top.children) + " >>");
  for (size_t i = 0; i < entries.size(); ++i) {
    const Node& n = nodes[i];
    const int page = std::min<int>(entries[i].page, static_cast<int>(page_objects.size()) - 1);
    char dest[96];
    std::snprintf(dest, sizeof dest, "[%d 0 R /XYZ 0 %.1f null]", page_objects[page],
                  height - entries[i].top);
    std::string body = "<< /Title " + pdf_text(entries[i].title) + " /Parent " +
                       std::to_string(object_of(n.parent)) + " 0 R /Dest " + dest;
    if (n.prev >= 0) body += " /Prev " + std::to_string(object_of(n.prev)) + " 0 R";
    if (n.next >= 0) body += " /Next " + std::to_string(object_of(n.next)) + " 0 R";
    if (n.first >= 0)  // chapters open closed: a negative count of their children
      body += " /First " + std::to_string(object_of(n.first)) + " 0 R /Last " +
              std::to_string(object_of(n.last)) + " 0 R /Count -" + std::to_string(n.children);
    add(object_of(static_cast<int>(i)), body + " >>");
  }
  const size_t xref = pdf.size() + update.size();
  char line[32];
  update += "xref\n";
  for (const auto& [number, offset] : offsets) {
    std::snprintf(line, sizeof line, "%d 1\n%010zu 00000 n \n", number, offset);
    update += line;
  }
  update += "trailer\n<< /Size " + std::to_string(object_of(static_cast<int>(entries.size()))) +
            " /Root " + std::to_string(root) + " 0 R";
  if (info) update += " /Info " + std::to_string(info) + " 0 R";
  update += " /Prev " + std::to_string(previous) + " >>\nstartxref\n" + std::to_string(xref) +
            "\n%%EOF\n";
  std::ofstream out(pdf_path, std::ios::binary | std::ios::app);
  out << update;
  if (!out) error = "cannot write " + pdf_path;
  return static_cast<bool>(out);
}

}  // namespace manual
