#pragma once

class ProblemView;
class QWidget;

/// What is wrong with the navigation catalogue, from which no page was read: the findings stand behind a button.
ProblemView *newCatalogueProblem(QWidget *parent);

/// Opens what the checks find in the catalogue as it is now, whether pages could be read from it or not, as soon as
/// they have found it.
void showCatalogueFindings(QWidget *window);
