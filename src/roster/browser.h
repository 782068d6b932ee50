#pragma once

#include <string>

/// The browser child of a roster control: shows one page at a time.
class IBrowser {
  public:
    virtual ~IBrowser() = default;

    /// `address` is "about:blank", or "file:\\" followed directly by the path of a page. Returns before the page is
    /// shown.
    virtual void Navigate(const std::string& address) = 0;
    virtual void Refresh() = 0;
    /// Prints the page by way of the platform's dialog.
    virtual void Print() = 0;
};
