// SPDX-License-Identifier: MIT
#pragma once

namespace project {

// The report's style sheet: screen in light and dark, and pages for print.
inline constexpr const char* kReportStyle = R"(
:root { color-scheme: light dark; --ink: #1c2733; --soft: #54616e; --line: #c9d1d9; --paper: #ffffff;
  --code: #f4f6f8; --accent: #0b5a8f; --comment: #3b6e3b; --string: #8a3324; }
@media (prefers-color-scheme: dark) { :root { --ink: #e3e8ed; --soft: #a5b0bb; --line: #3d4852;
  --paper: #161b20; --code: #1f262d; --accent: #74b9ea; --comment: #8fc48f; --string: #e0a08f; } }
* { box-sizing: border-box; }
body { font: 15px/1.5 "Segoe UI", "Noto Sans", "DejaVu Sans", sans-serif; color: var(--ink);
  background: var(--paper); max-width: 62rem; margin: 2rem auto; padding: 0 1.5rem; }
h1 { font-size: 1.9rem; line-height: 1.2; margin: 0 0 .3rem; overflow-wrap: anywhere; }
h2 { font-size: 1.3rem; margin: 2.5rem 0 1rem; padding-bottom: .3rem; border-bottom: 2px solid var(--line);
  overflow-wrap: anywhere; }
h3 { font-size: 1.08rem; margin: 0 0 .5rem; overflow-wrap: anywhere; }
.counts, .none, .number { color: var(--soft); margin: .2rem 0 .8rem; }
.number { font-weight: 400; }
a { color: var(--accent); text-decoration: none; }
a:hover { text-decoration: underline; }
nav > ul { list-style: none; padding: 0; margin: 0; }
nav > ul > li { margin-bottom: .4rem; }
.names { columns: 14rem; padding-left: 1.2rem; list-style: none; margin: .2rem 0 .8rem; }
.names li { overflow-wrap: anywhere; }
article { margin: 0 0 1.6rem; padding: .9rem 1.1rem 1rem; border: 1px solid var(--line); border-radius: 6px; }
.off h3 { color: var(--soft); }
dl { display: grid; grid-template-columns: max-content 1fr; gap: .1rem 1rem; margin: 0 0 .8rem; }
dt { color: var(--soft); }
dd { margin: 0; overflow-wrap: anywhere; }
table { border-collapse: collapse; table-layout: fixed; width: 100%; margin: 0 0 .8rem; }
.arguments th { width: 34%; }
.aliases th { width: 30%; }
.aliases th:nth-child(3) { width: 5.5rem; }
.aliases th:last-child { width: auto; }
tr:target { background: var(--code); }
th, td { text-align: left; vertical-align: top; padding: .25rem .8rem .25rem 0;
  border-bottom: 1px solid var(--line); overflow-wrap: anywhere; }
th { color: var(--soft); font-weight: 600; }
pre { font: 13px/1.45 "Consolas", "DejaVu Sans Mono", monospace; background: var(--code); padding: .7rem .9rem;
  border-radius: 4px; margin: 0; white-space: pre-wrap; overflow-wrap: anywhere; tab-size: 4; }
pre b { font-weight: 600; color: var(--accent); }
pre i { color: var(--comment); }
pre q { color: var(--string); quotes: none; }
.unused { columns: 18rem; padding-left: 1.2rem; }
.unused li { overflow-wrap: anywhere; }
.unused span { color: var(--soft); }
@media screen { article { content-visibility: auto; contain-intrinsic-size: auto 18rem; } }
@page { size: A4; margin: 18mm 16mm;
  @bottom-right { content: counter(page) " / " counter(pages); font: 8pt sans-serif; color: #444; } }
@media print {
  :root { color-scheme: light; --ink: #000; --soft: #444; --line: #999; --paper: #fff; --code: #f4f4f4; --accent: #000;
    --comment: #333; --string: #333; }
  body { font-size: 10pt; max-width: none; margin: 0; padding: 0; }
  pre { font-size: 8.5pt; }
  .names { columns: 10rem; }
  section { break-before: page; }
  section:last-of-type { break-before: auto; break-inside: avoid; }
  section > h2:first-child { margin-top: 0; }
  section:last-of-type > h2:first-child { margin-top: 2.5rem; }
  .arguments { break-inside: avoid; }
  h2, h3, dl, thead { break-after: avoid; }
  thead { display: table-header-group; }
  tr, dl, li { break-inside: avoid; }
  pre { orphans: 4; widows: 4; }
  article { border: 0; border-bottom: 1px solid var(--line); border-radius: 0; padding: 0 0 1rem; }
}
)";

}  // namespace project
