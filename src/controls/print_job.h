#pragma once

#include "core/files/platform.h"

class QPrinter;

/// A print job as this toolkit knows it.
class CPrintJob : public IPrintJob {
  public:
    /// Prints to the printer that the user chose.
    virtual void Print(QPrinter& printer) = 0;
};
