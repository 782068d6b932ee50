#pragma once

#include <QTextBlock>
#include <vector>

#include "controls/print_job.h"
#include "roster/viewers/page_text.h"

class CPageDocument;
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
        bool rule = false;
        bool squad = false;  // heads a squad, whose members follow up to the next rule
        bool begins = true;  // may stand first on a sheet
        QTextBlock first;
        QTextBlock last;
    };
    // From top to bottom, of a sheet or a line.
    struct SSheet {
        double top = 0;
        double bottom = 0;
    };

    static void Darken(QTextDocument& document);
    static void Widen(QTextDocument& document);
    static void LayOut(QTextDocument& document, double width);
    static void FitPictures(CPageDocument& document, const QSizeF& room);
    static std::vector<SPart> PartsOf(const QTextDocument& document);
    static std::vector<SSheet> LinesOf(const QTextDocument& document, const SPart& part);
    static double CutBetweenLines(const std::vector<SSheet>& lines, const SSheet& sheet);
    static void Group(std::vector<SPart>& parts, double height);
    static std::vector<SSheet> Paginate(const QTextDocument& document, double height);
    static QString TitleOf(const QTextDocument& document);

    CPageText page_;
};
