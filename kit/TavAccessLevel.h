#pragma once

/**
 * @brief The access levels of the access control, by which its keyed tables are asked.
 *
 * The manager does not know what they mean: those who fill the tables and those who show them agree. What the
 * development client's agent means by them is told here. The rows of the lists of levels have the same numbers in
 * STAccessSetUIData::level.
 *
 * | level | principals | objects |
 * |---|---|---|
 * | Highest, 3 | the superuser | for the owner alone |
 * | High, 2 | in a group of administrators | the group may read |
 * | Low, 1 | may log in | everybody may read |
 * | Lowest, 0 | all others | everybody may write |
 */
enum class TavAccessLevel : int { Lowest = 0, Low = 1, High = 2, Highest = 3 };
