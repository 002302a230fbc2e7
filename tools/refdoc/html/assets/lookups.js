// Looks up which records a text of a query may match, and how well at best. The index has the words
// of each record, so a text is found by its first word and by the phrase that follows it.

const LONGEST_KEY = 24; // of the tables "list" and "best", as in `RecordWords.hpp`

// Returns what to look up for a text: its first word, and the phrase that follows it.
function lookupsFor(text) {
  const [word] = text.match(/^(?:[\p{L}\p{M}\p{N}]+|[^\p{L}\p{M}\p{N}]+)/u);
  const isAll = word === text;
  const first = { table: "list", text: word, isOfLetters: isWordCharacter(word), isFirst: true, isLast: isAll };
  const lookups = isAll ? [first] : [first, { table: "phrase", text: text.slice(word.length), isFirst: false, isLast: true }];
  return lookups.map((lookup) => ({ ...lookup, prefix: lookup.text.slice(0, LONGEST_KEY - 1) }));
}

// How a word stands in a field.
const ABSENT = 0;
const AT_START = 2;
const WHOLE = 3;

// Returns the best way in which the text of a lookup can match a field that has a key.
function boundInField({ isOfLetters, isFirst, isLast }, isWholeWord, isWholeEnd, occurrence) {
  if (occurrence === ABSENT) return NONE;
  if (!isFirst) return EXACT; // only the first word tells
  if (isWholeWord && occurrence >= AT_START) {
    return isLast && !(isWholeEnd && occurrence === WHOLE) ? PREFIX : EXACT;
  }
  if (!isOfLetters) return isWholeWord ? SUBSTRING : WORD;
  return isWholeWord && (isWholeEnd || !isLast) ? WORD : SUBSTRING;
}

// Returns boundInField() of the three fields; null if the text is not in any of them.
function boundsIn(lookup, key, isWholeWord, code) {
  // The end of long keys is not in the index.
  const isWholeEnd = key === lookup.text || lookup.prefix !== lookup.text;
  if (!lookup.isLast && !isWholeEnd) return null;
  return [0, 2, 4].map((shift) => boundInField(lookup, isWholeWord, isWholeEnd, (code >> shift) & 3));
}

// Returns the records that may match a lookup: a map from their numbers to boundsIn().
async function recordsWith(lookup, table) {
  const records = new Map();
  for (const { key, numbers } of await table.rows(lookup.parts, lookup.prefix)) {
    const isWholeWord = numbers[0] === 1;
    let record = 0;
    for (let at = 1; at < numbers.length; at += 2) {
      record += numbers[at];
      const bounds = boundsIn(lookup, key, isWholeWord, numbers[at + 1]);
      if (bounds === null) continue;
      const others = records.get(record) ?? [NONE, NONE, NONE];
      records.set(
        record,
        bounds.map((bound, field) => Math.min(bound, others[field])),
      );
    }
  }
  return records;
}
