// The library's own side of a string sink: an object that owns a sink whose callbacks land in its
// virtual feed operations, so that code inside the library can collect what a function feeds.
#pragma once

#include <string>

#include "vxk_proj4_shp.h"

// Holds the sink handle; the two static callbacks take the object from the user pointer and dispatch
// to its feed operations.
class Tvx_string_adapter_base {
 public:
  Tvx_string_adapter_base() = default;
  Tvx_string_adapter_base(const Tvx_string_adapter_base&) = delete;
  Tvx_string_adapter_base& operator=(const Tvx_string_adapter_base&) = delete;
  virtual ~Tvx_string_adapter_base() = default;

  virtual void feed(const char* text) = 0;
  virtual void feed(const wchar_t* text) = 0;

  static void vx_ansi_string_callback(const char* text, void* user);
  static void vx_unicode_string_callback(const wchar_t* text, void* user);

  Ivx_string_adp* adapter() const { return f_adapter; }

 protected:
  Ivx_string_adp* f_adapter = nullptr;
};

// A sink whose every feed replaces a wide string held by reference: a null text empties it, a wide text
// is assigned, a narrow text is converted from the system's narrow code page first.
class Tvx_std_wstring_adapter : public Tvx_string_adapter_base {
 public:
  explicit Tvx_std_wstring_adapter(std::wstring& target);
  ~Tvx_std_wstring_adapter() override;

  void feed(const char* text) override;
  void feed(const wchar_t* text) override;

 private:
  std::wstring& f_target;
};
