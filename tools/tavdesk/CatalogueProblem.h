#pragma once

class ProblemView;
class QWidget;

/// What is wrong with the navigation catalogue, from which no page was read: the findings stand behind a button.
ProblemView *newCatalogueProblem(QWidget *parent);
