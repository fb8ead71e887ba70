'use strict';

// The review is in the variable REVIEW: { report, languages, changes }; see review_page.cpp.
const views = REVIEW.report.screens.map((view, place) => ({ ...view, place, findings: findingsOf(view) }));
const byId = (id) => document.getElementById(id);
const chosen = { screens: new Set(views.map((v) => v.screen)), languages: new Set(views.map(languageOf)) };
const hasChanges = REVIEW.changes !== undefined;
let shown = [];
let open = null;

function languageOf(view) {
  return String(view.option_language || view.language);
}

function languageName(id) {
  return REVIEW.languages[id] || id;
}

function changeOf(view) {
  return hasChanges ? REVIEW.changes[`${view.screen}-${languageOf(view)}`] : undefined;
}

function findingsOf(view) {
  const found = [];
  const add = (kind, item, text) => found.push({ kind, item, text });
  for (const text of view.texts) {
    if (text.overflow) add('overflow', text, `needs ${text.needed.join(' × ')} px, has ${text.box[2]} × ${text.box[3]}`);
    if (text.missing_glyphs) add('glyphs', text, `no glyph for ${text.missing_glyphs}`);
    if (text.overlaps) add('overlap', text, 'lies over another text');
    if (text.fallback) add('fallback', text, 'is shown in English');
  }
  for (const picture of view.pictures) {
    if (picture.missing) add('picture', picture, 'there is no picture');
  }
  return found;
}

// The page opens a view by this part of its address, for links that people send.
function linkOf(view) {
  return `#view=${view.screen}-${languageOf(view)}`;
}

function element(tag, properties = {}, ...children) {
  const made = Object.assign(document.createElement(tag), properties);
  made.append(...children);
  return made;
}

function describe(item) {
  const lines = item.text !== undefined
    ? [`“${item.text}”`, item.id ? `text ${item.id}  ${item.name}  row ${item.row}` : 'not a message',
       item.id ? `from ${item.origin}` : '',
       `${item.needed.join(' × ')} px in ${item.box[2]} × ${item.box[3]} at ${item.box[0]}, ${item.box[1]}`,
       `${item.font.family}, ${item.font.px} px`]
    : [`picture ${item.id}  ${item.name}`, item.file ? `${item.file} (${item.variant})` : 'no file',
       `${item.box[2]} × ${item.box[3]} px at ${item.box[0]}, ${item.box[1]}`];
  return lines.filter((line) => line).join('\n');
}

function pictureOf(view, version) {
  const name = `${view.screen}-${languageOf(view)}.png`;
  return `${version === 'now' ? 'screens' : version}/${encodeURIComponent(name)}`;
}

function moveTip(event) {
  const tip = byId('tip');
  tip.style.left = `${Math.min(event.clientX + 14, innerWidth - tip.offsetWidth - 8)}px`;
  tip.style.top = `${Math.min(event.clientY + 14, innerHeight - tip.offsetHeight - 8)}px`;
}

// The texts and pictures of a view as boxes above its image, each telling what it is when pointed at.
function fillStage(stage, view, version) {
  const image = element('img', { src: pictureOf(view, version), loading: 'lazy', alt: `${view.screen}, ${languageName(languageOf(view))}` });
  stage.replaceChildren(image);
  const { width, height } = REVIEW.report.panel;
  const kinds = new Map();
  for (const finding of view.findings) kinds.set(finding.item, [...(kinds.get(finding.item) || []), finding.kind]);
  for (const item of [...view.pictures, ...view.texts]) {
    const [x, y, w, h] = item.box;
    const spot = element('div', { className: ['spot', ...(kinds.get(item) || [])].join(' '), tabIndex: -1 });
    Object.assign(spot.style, { left: `${100 * x / width}%`, top: `${100 * y / height}%`, width: `${100 * w / width}%`, height: `${100 * h / height}%` });
    spot.addEventListener('pointerenter', (event) => {
      (byId('view').open ? byId('view') : document.body).append(byId('tip')); // above an open view
      byId('tip').textContent = describe(item);
      byId('tip').hidden = false;
      moveTip(event);
    });
    spot.addEventListener('pointermove', moveTip);
    spot.addEventListener('pointerleave', () => { byId('tip').hidden = true; });
    spot.item = item;
    stage.append(spot);
  }
}

function mark(stage, item) {
  for (const spot of stage.querySelectorAll('.spot')) spot.classList.toggle('marked', spot.item === item);
}

function matches(view, words) {
  if (!words) return true;
  return [...view.texts, ...view.pictures].some((item) =>
    item.id === words || [item.text, item.name, item.file].some((part) => part && part.toLowerCase().includes(words)));
}

function card(view) {
  const change = changeOf(view);
  const notes = [];
  if (view.findings.length) notes.push(`${view.findings.length} found`);
  if (change && change.pixels !== 0) notes.push(change.pixels === null ? 'new' : `${change.pixels} px changed`);
  const stage = element('div', { className: 'stage' });
  fillStage(stage, view, 'now');
  stage.addEventListener('click', (event) => openView(view, event.target.item));
  return element('article', { className: 'card', id: `${view.screen}-${languageOf(view)}` },
    element('h3', {}, `${view.screen} · ${languageName(languageOf(view))}`, element('span', { className: 'found', textContent: notes.join(', ') })),
    stage);
}

function showViews() {
  const words = byId('search').value.trim().toLowerCase();
  shown = views.filter((view) => chosen.screens.has(view.screen) && chosen.languages.has(languageOf(view)) &&
    (!byId('only-findings').checked || view.findings.length) &&
    (!byId('only-changed').checked || (changeOf(view) && changeOf(view).pixels !== 0)) && matches(view, words));
  byId('views').replaceChildren(...(shown.length ? shown.map(card) : [element('p', { className: 'empty', textContent: 'No view is left with this choice.' })]));
  const findings = shown.flatMap((view) => view.findings.map((finding) => ({ view, ...finding })));
  byId('finding-count').textContent = `(${findings.length})`;
  byId('findings').replaceChildren(...findings.map(({ view, kind, item, text }) => element('li', {},
    element('span', { className: `kind ${kind}`, textContent: `${kind} ` }),
    element('button', { onclick: () => openView(view, item) }, `${view.screen}, ${languageName(languageOf(view))}`),
    `${item.text !== undefined ? `“${item.text}” (${item.id})` : `${item.name} (${item.id})`} ${text}`)));
}

function openView(view, item) {
  open = view;
  byId('view-title').textContent = `${view.screen} · ${languageName(languageOf(view))}`;
  const change = changeOf(view);
  const versions = change && change.pixels ? ['now', 'before', 'difference'] : ['now'];
  byId('view-versions').replaceChildren(...(versions.length > 1 ? versions.map((version) => {
    const button = element('button', { textContent: version, onclick: () => showVersion(view, version) });
    button.dataset.version = version;
    return button;
  }) : []));
  showVersion(view, 'now');
  mark(byId('view-stage'), item);
  byId('view-details').textContent = item ? describe(item) : view.findings.map((f) => `${f.kind}: ${describe(f.item)}\n${f.text}`).join('\n\n') || 'Nothing was found here. Point at a text or a picture.';
  history.replaceState(null, '', linkOf(view));
  if (!byId('view').open) byId('view').showModal();
}

function showVersion(view, version) {
  fillStage(byId('view-stage'), view, version);
  for (const spot of byId('view-stage').querySelectorAll('.spot')) {
    spot.addEventListener('click', () => { mark(byId('view-stage'), spot.item); byId('view-details').textContent = describe(spot.item); });
  }
  for (const button of byId('view-versions').children) button.setAttribute('aria-pressed', String(button.dataset.version === version));
}

function openNeighbour(step) {
  const place = shown.indexOf(open);
  if (place >= 0 && shown.length) openView(shown[(place + step + shown.length) % shown.length]);
}

// A list of boxes to tick, with "all" and "none" above it.
function fillChoice(name, values, label) {
  const boxes = values.map((value) => {
    const count = views.filter((v) => (name === 'screens' ? v.screen : languageOf(v)) === value).reduce((sum, v) => sum + v.findings.length, 0);
    const box = element('input', { type: 'checkbox', checked: true });
    box.addEventListener('change', () => { chosen[name][box.checked ? 'add' : 'delete'](value); showViews(); });
    byId(name).append(element('li', {}, element('label', {}, box, label(value), element('span', { className: 'count', textContent: count || '' }))));
    return [box, value];
  });
  for (const [text, checked] of [['all', true], ['none', false]]) {
    byId(`${name}-choose`).append(element('button', { textContent: text, onclick: () => {
      for (const [box, value] of boxes) { box.checked = checked; chosen[name][checked ? 'add' : 'delete'](value); }
      showViews();
    } }));
  }
}

function start() {
  const screens = [...new Set(views.map((v) => v.screen))];
  const languages = [...new Set(views.map(languageOf))];
  const found = views.reduce((sum, view) => sum + view.findings.length, 0);
  const changed = hasChanges ? views.filter((v) => changeOf(v) && changeOf(v).pixels !== 0).length : 0;
  byId('summary').textContent = `${screens.length} screens in ${languages.length} languages, ${found} findings` + (hasChanges ? `, ${changed} views changed` : '');
  byId('changed-label').hidden = !hasChanges;
  fillChoice('screens', screens, (name) => name);
  fillChoice('languages', languages, languageName);
  byId('width').value = 400;
  byId('width').addEventListener('input', () => byId('views').style.setProperty('--shown', `${byId('width').value}px`));
  for (const id of ['search', 'only-findings', 'only-changed']) byId(id).addEventListener('input', showViews);
  byId('view-close').addEventListener('click', () => byId('view').close());
  byId('view-before').addEventListener('click', () => openNeighbour(-1));
  byId('view-next').addEventListener('click', () => openNeighbour(1));
  byId('view').addEventListener('keydown', (event) => {
    if (event.key === 'ArrowLeft') openNeighbour(-1);
    if (event.key === 'ArrowRight') openNeighbour(1);
  });
  byId('view').addEventListener('close', () => {
    byId('tip').hidden = true;
    history.replaceState(null, '', ' ');
  });
  showViews();
  const asked = views.find((view) => linkOf(view) === decodeURIComponent(location.hash));
  if (asked) openView(asked);
}

start();
