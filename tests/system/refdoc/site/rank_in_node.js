// Prints the results of the search of a site, without a browser.
//
// usage: node rank_in_node.js SITE LANGUAGE < QUERIES
//
// QUERIES is a JSON array of strings. The output is an array with the results of each query:
// [match, name, purpose, flags].
"use strict";

const fs = require("fs");
const path = require("path");
const vm = require("vm");

const [site, language] = process.argv.slice(2);
const assets = path.join(site, "refdoc-site");

function run(file) {
  vm.runInThisContext(fs.readFileSync(path.join(assets, file), "utf8"), { filename: file });
}

run("search.js");
let count = 0;
globalThis.refdocIndex = (partCount) => (count = partCount);
run(`search/${language}/parts.js`);
const rows = [];
globalThis.refdocIndex = (part) => rows.push(...part);
for (let part = 1; part <= count; ++part) run(`search/${language}/${part}.js`);

const entries = rows.map((row, position) => globalThis.readEntry(row, position));
const queries = JSON.parse(fs.readFileSync(0, "utf8"));
const results = queries.map((query) =>
  globalThis.search(query, entries).map(({ rank, entry }) => [rank[0], entry.name, entry.purpose, entry.flags]),
);
process.stdout.write(JSON.stringify(results));
