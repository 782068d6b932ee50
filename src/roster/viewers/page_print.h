#pragma once

#include <QTextBlock>
#include <vector>

#include "controls/print_job.h"
#include "roster/viewers/page_text.h"

class QTextDocument;

/// Prints a page for the table: dark on white whatever its colours, its parts kept whole on the sheets, each sheet with
/// a number.
class CPagePrint : public CPrintJob {
  public:
    explicit CPagePrint(CPageText page) : page_(std::move(page)) {}

    void Print(QPrinter& printer) override;

  private:
    // A table, or a paragraph outside of tables.
    struct SPart {
        double top = 0;
        double bottom = 0;
        bool empty = false;    // a rule or an empty line
        bool heading = false;  // belongs to what follows
        QTextBlock first;
        QTextBlock last;
    };
    struct SSheet {
        double top = 0;
        double bottom = 0;
    };

    static void Darken(QTextDocument& document);
    static void Widen(QTextDocument& document);
    static std::vector<SPart> PartsOf(const QTextDocument& document);
    static double CutBetweenLines(const QTextDocument& document, const std::vector<SPart>& parts, const SSheet& sheet);
    static std::vector<SSheet> Paginate(const QTextDocument& document, double height);
    static QString TitleOf(const QTextDocument& document);

    CPageText page_;
};
