#pragma once
// A small JSON writer for the batch command: objects, arrays, numbers with 17 significant digits.
#include <string>
#include <string_view>
#include <vector>

namespace tellux::cli {

class Json {
 public:
  Json& begin_object();
  Json& end_object();
  Json& begin_array();
  Json& end_array();
  Json& key(std::string_view k);
  Json& number(double v);
  Json& integer(long long v);
  Json& text(std::string_view s);
  Json& boolean(bool b);
  std::string str() const { return out_ + "\n"; }

 private:
  void comma();
  std::string out_;
  std::vector<bool> first_;  // per open container: no item written yet
  bool after_key_ = false;
};

}  // namespace tellux::cli
