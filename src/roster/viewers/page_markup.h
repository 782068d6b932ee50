#pragma once

#include <QStringView>

#include "roster/viewers/page_text.h"

/// Rewrites the markup of a page into well-formed markup of the elements and attributes that pages need, and takes the
/// colours out of its BODY tag. Names and descriptions reach a page as they are, and no two readers of broken markup
/// agree on what it means: what is passed on leaves the toolkit nothing to guess, and nothing that it could lay out for
/// ever or without end. What is left out is markup alone, never text.
CPageText RewriteMarkup(QStringView html);
