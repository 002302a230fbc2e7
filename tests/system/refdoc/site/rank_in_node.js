// Prints the results of the search of a site, without a browser.
//
// usage: node rank_in_node.js SITE LANGUAGE < QUERIES
//
// QUERIES is a JSON array of strings. The output is an array with an object for each query:
// {state, bytes, results: [[match, name, purpose, flags], ...]}. `bytes` is the size of the
// files of the index that the search read.
"use strict";

const fs = require("fs");
const path = require("path");
const vm = require("vm");

const [site, language] = process.argv.slice(2);
const assets = path.join(site, "refdoc-site");

function run(file) {
  const content = fs.readFileSync(path.join(assets, file), "utf8");
  vm.runInThisContext(content, { filename: file });
  return Buffer.byteLength(content);
}

// What the script looks for in a page. This one has nothing to set up.
globalThis.document = { querySelectorAll: () => [] };
globalThis.addEventListener = () => {};
run("script.js");

async function search(query) {
  const sizes = new Map();
  const load = async (name) => {
    let part;
    globalThis.refdocIndex = (ownName, size, data) => (part = { ownName, size, data });
    sizes.set(name, run(`search/${language}/${name}.js`));
    if (part.ownName !== name || part.size !== sizes.get(name)) throw new Error(`${name} is not described correctly`);
    return part;
  };
  const search = vm.runInThisContext("(query, load) => new Search(query, load)")(query, load);
  const state = await search.run();
  const results = search.results.map(({ rank, entry }) => [rank[0], entry.name, entry.purpose, entry.flags]);
  return { state, bytes: [...sizes.values()].reduce((sum, size) => sum + size, 0), results };
}

async function main() {
  const answers = [];
  for (const query of JSON.parse(fs.readFileSync(0, "utf8"))) answers.push(await search(query));
  process.stdout.write(JSON.stringify(answers));
}

main();
