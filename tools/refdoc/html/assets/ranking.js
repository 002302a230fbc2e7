"use strict";

// Ranks entries as `refdoc search` does, with the rules of `tools/refdoc/search/Ranking.hpp`. Strings
// are compared by code units, after foldCase(). These functions load nothing.

// How a field matches a text, the best way first.
const EXACT = 0;
const PREFIX = 1;
const WORD = 2;
const SUBSTRING = 3;
const NEAR = 4;
const NONE = 5;

const NOT_INSTALLED = 1;
const DEPRECATED = 2;

function foldCharacter(character) {
  // Case folding keeps the dotless i, and turns small Cherokee letters into capitals.
  if (character === "ı") return character;
  if (/\p{Script=Cherokee}/u.test(character)) return character.toUpperCase();
  return character.toLowerCase().toUpperCase().toLowerCase();
}

// Returns a string without differences of letter case, by the full case folding of Unicode.
function foldCase(string) {
  if (/^[\x00-\x7F]*$/.test(string)) return string.toLowerCase();
  return Array.from(string, foldCharacter).join("");
}

function isWordCharacter(character) {
  return character !== undefined && /^[\p{L}\p{M}\p{N}]/u.test(character);
}

function characterBefore(string, position) {
  return Array.from(string.slice(Math.max(0, position - 2), position)).at(-1);
}

function hasWord(string, text) {
  for (let at = string.indexOf(text); at >= 0; at = string.indexOf(text, at + 1)) {
    const isWord =
      !isWordCharacter(characterBefore(string, at)) &&
      !isWordCharacter(string.slice(at + text.length, at + text.length + 2));
    if (isWord) return true;
  }
  return false;
}

// Returns how many code units must be added, removed, replaced or swapped with their neighbour to
// turn one string into the other; more than the limit if it takes more than that.
function editDistance(left, right, limit) {
  if (Math.abs(left.length - right.length) > limit) return limit + 1;
  let twoAbove = [];
  let above = [];
  let row = Array.from({ length: right.length + 1 }, (_, index) => index);
  for (let i = 1; i <= left.length; ++i) {
    [twoAbove, above, row] = [above, row, [i]];
    for (let j = 1; j <= right.length; ++j) {
      const replaced = above[j - 1] + (left[i - 1] === right[j - 1] ? 0 : 1);
      row[j] = Math.min(replaced, row[j - 1] + 1, above[j] + 1);
      if (i > 1 && j > 1 && left[i - 1] === right[j - 2] && left[i - 2] === right[j - 1]) {
        row[j] = Math.min(row[j], twoAbove[j - 2] + 1);
      }
    }
    if (Math.min(...row) > limit) return limit + 1;
  }
  return row[right.length];
}

function isNear(text, name) {
  const limit = Math.min(Math.floor(text.length / 3), 2);
  return limit > 0 && editDistance(text, name, limit) <= limit;
}

function matchOf(text, field) {
  const at = field.indexOf(text);
  if (at === 0) return field.length === text.length ? EXACT : PREFIX;
  if (at < 0) return NONE;
  return hasWord(field, text) ? WORD : SUBSTRING;
}

// Returns match * 3 + field for the field that matches best. Only names have near matches.
function bestMatch(text, entry) {
  let best = NONE * 3;
  for (const [field, string] of entry.folded.entries()) {
    let match = matchOf(text, string);
    if (match === NONE && field === 0 && isNear(text, string)) match = NEAR;
    if (match !== NONE) best = Math.min(best, match * 3 + field);
  }
  return best;
}

// Returns the texts of a query, or none if it is empty.
function textsOf(query) {
  return foldCase(query).split(/\s+/u).filter((text) => text !== "");
}

// Returns the rank of an entry, as numbers to compare one after the other; null if it does not
// match all texts.
function rankOf(texts, entry) {
  const worst = Math.max(...texts.map((text) => bestMatch(text, entry)));
  if (worst >= NONE * 3) return null;
  const field = worst % 3;
  return [(worst - field) / 3, entry.flags & NOT_INSTALLED, entry.flags & DEPRECATED, field];
}

function compareNumbers(left, right) {
  for (const [index, number] of left.entries()) {
    if (number !== right[index]) return number - right[index];
  }
  return 0;
}
