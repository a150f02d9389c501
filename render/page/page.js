// The page around a picture: pans and zooms, finds nodes and streams, and shows
// their details. Everything from a configuration is inserted as text.
'use strict';

(() => {
  const data = JSON.parse(document.getElementById('ui-data').textContent);
  const root = document.documentElement;
  const stage = document.getElementById('ui-stage');
  const svg = stage.querySelector('svg');
  const panel = document.getElementById('ui-panel');
  const search = document.getElementById('ui-search');
  const results = document.getElementById('ui-results');

  // ---- The parts of the picture ------------------------------------------

  // Pipes, nodes and streams, by the ids of their elements.
  const things = new Map();
  for (const pipe of data.pipes) {
    things.set(pipe.id, {kind: 'pipe', pipe, item: pipe, title: pipe.key, detail: pipe.facts});
    for (const node of pipe.nodes) {
      const detail = `${pipe.key}/${node.key}`;
      things.set(node.id, {kind: 'node', pipe, item: node, title: node.name, detail});
    }
    for (const stream of pipe.streams) {
      const formats = [...stream.producers, ...stream.consumers].map((end) => end.format);
      const detail = `${pipe.key}, stream, ${[...new Set(formats)].join(', ')}`;
      things.set(stream.id, {kind: 'stream', pipe, item: stream, title: stream.name, detail});
    }
  }

  // The elements of each thing; a stream has several.
  const elements = new Map();
  for (const element of svg.querySelectorAll('g[id]')) {
    const id = element.id.replace(/^(p\d+s\d+)[a-z]+\d*$/, '$1');
    if (things.has(id)) {
      elements.set(id, [...(elements.get(id) || []), element]);
    }
  }

  function thingAt(target) {
    for (let at = target; at && at !== svg; at = at.parentNode) {
      const id = (at.id || '').replace(/^(p\d+s\d+)[a-z]+\d*$/, '$1');
      if (things.has(id)) {
        return id;
      }
    }
    return '';
  }

  // ---- The view ------------------------------------------------------------

  const box = svg.viewBox.baseVal;
  const full = {x: box.x, y: box.y, w: box.width, h: box.height};
  svg.removeAttribute('width');
  svg.removeAttribute('height');
  const view = {x: 0, y: 0, scale: 1};  // the corner, and units of the picture per pixel
  const READABLE = 2;  // a larger scale makes text too small
  let fitted = true;

  function show() {
    const w = Math.max(stage.clientWidth, 1) * view.scale;
    const h = Math.max(stage.clientHeight, 1) * view.scale;
    svg.setAttribute('viewBox', `${view.x} ${view.y} ${w} ${h}`);
  }

  // Shows the entire picture from its top, or its beginning if the text of the
  // entire picture would be too small to read.
  function fit(largest = Infinity) {
    fitted = true;
    const scale = Math.max(full.w / Math.max(stage.clientWidth, 1),
                           full.h / Math.max(stage.clientHeight, 1), 0.5);
    view.scale = Math.min(scale, largest);
    view.x = full.x + Math.max(full.w - stage.clientWidth * view.scale, 0) / 2;
    if (scale > largest) {
      view.x = full.x;
    }
    view.y = full.y;
    show();
  }

  // Zooms around the point at these pixels of the stage.
  function zoom(factor, x = stage.clientWidth / 2, y = stage.clientHeight / 2) {
    const largest = 4 * Math.max(full.w / stage.clientWidth, full.h / stage.clientHeight, 1);
    const scale = Math.min(Math.max(view.scale * factor, 0.05), largest);
    view.x += x * (view.scale - scale);
    view.y += y * (view.scale - scale);
    view.scale = scale;
    fitted = false;
    show();
  }

  function pan(pixelsX, pixelsY) {
    view.x -= pixelsX * view.scale;
    view.y -= pixelsY * view.scale;
    fitted = false;
    show();
  }

  function centre(element) {
    const box = element.getBoundingClientRect();
    const around = stage.getBoundingClientRect();
    pan(around.left + around.width / 2 - box.left - box.width / 2,
        around.top + around.height / 2 - box.top - box.height / 2);
  }

  // Centres an element, large enough to read.
  function goTo(element) {
    if (view.scale > 1) {
      zoom(1 / view.scale);
    }
    centre(element);
  }

  // Centres an element unless the stage shows all of it.
  function reveal(element) {
    const box = element.getBoundingClientRect();
    const around = stage.getBoundingClientRect();
    if (box.left < around.left || box.right > around.right || box.top < around.top ||
        box.bottom > around.bottom) {
      centre(element);
    }
  }

  const pointers = new Map();
  let moved = false;

  function distance() {
    const [a, b] = [...pointers.values()];
    return Math.hypot(a.x - b.x, a.y - b.y) || 1;
  }

  stage.addEventListener('pointerdown', (event) => {
    pointers.set(event.pointerId, {x: event.clientX, y: event.clientY});
    moved = false;
  });
  stage.addEventListener('pointermove', (event) => {
    const before = pointers.get(event.pointerId);
    if (!before) {
      return;
    }
    const dx = event.clientX - before.x;
    const dy = event.clientY - before.y;
    if (!moved && Math.hypot(dx, dy) < 4) {
      return;
    }
    if (!moved) {
      moved = true;
      stage.setPointerCapture(event.pointerId);
    }
    const apart = pointers.size === 2 ? distance() : 0;
    pointers.set(event.pointerId, {x: event.clientX, y: event.clientY});
    if (pointers.size === 2) {
      const around = stage.getBoundingClientRect();
      zoom(apart / distance(), event.clientX - around.left, event.clientY - around.top);
    } else {
      pan(dx, dy);
    }
  });
  for (const end of ['pointerup', 'pointercancel', 'lostpointercapture']) {
    stage.addEventListener(end, (event) => pointers.delete(event.pointerId));
  }
  stage.addEventListener('wheel', (event) => {
    event.preventDefault();
    const around = stage.getBoundingClientRect();
    const lines = event.deltaMode === 1 ? 16 : 1;
    zoom(Math.exp(event.deltaY * lines * 0.0015), event.clientX - around.left,
         event.clientY - around.top);
  }, {passive: false});

  // ---- The panel -----------------------------------------------------------

  function add(parent, tag, text, className) {
    const element = document.createElement(tag);
    if (text !== undefined) {
      element.textContent = text;
    }
    if (className) {
      element.className = className;
    }
    parent.append(element);
    return element;
  }

  function addButton(parent, text, act) {
    const button = add(parent, 'button', text);
    button.type = 'button';
    button.addEventListener('click', act);
    return button;
  }

  function addLink(parent, id) {
    const thing = things.get(id);
    const text = thing.kind === 'node' ? `${thing.item.key} ${thing.title}` : thing.title;
    return addButton(parent, text, () => select(id, true));
  }

  function addSection(title) {
    const section = add(panel, 'section');
    add(section, 'h3', title);
    return section;
  }

  function addFindings(findings) {
    if (findings.length === 0) {
      return;
    }
    const list = add(addSection('Findings'), 'ul', undefined, 'ui-findings');
    for (const finding of findings) {
      const item = add(list, 'li', undefined, `ui-${finding.severity}`);
      add(item, 'strong', `${finding.severity} ${finding.place}`);
      add(item, 'span', ` ${finding.message} [${finding.code}]`);
      if (finding.hint) {
        add(item, 'p', `Hint: ${finding.hint}`);
      }
    }
  }

  function addRows(table, rows) {
    for (const row of rows) {
      const line = add(table, 'tr');
      add(line, 'th', row[0]).scope = 'row';
      row.slice(1).forEach((cell, index) => {
        add(line, 'td', cell, index + 2 < row.length ? 'ui-type' : '');
      });
    }
  }

  function addOptions(title, options) {
    if (options.length > 0) {
      addRows(add(addSection(title), 'table'), options);
    }
  }

  function addEnds(title, pipe, ends) {
    const section = addSection(title);
    if (ends.length === 0) {
      add(section, 'p', 'none');
    }
    const list = add(section, 'ul', undefined, 'ui-ends');
    for (const end of ends) {
      const item = add(list, 'li');
      addLink(item, end.id);
      add(item, 'span', ` ${end.format}${end.newest ? ', latest only' : ''}`);
    }
  }

  function showNode({pipe, item}) {
    const name = [['name', item.name], ['class', item.class], ['key', item.key],
                  ['id', String(item.number)], ['set-up', item.outcome]];
    addRows(add(panel, 'table'), name);
    addFindings(item.findings);
    addEnds('Inputs', pipe, item.inputs);
    addEnds('Outputs', pipe, item.outputs);
    addOptions('Options', item.options);
  }

  function showStream({pipe, item}) {
    add(panel, 'p', `a stream in ${pipe.key}`);
    addFindings(item.findings);
    addEnds('Producers', pipe, item.producers);
    addEnds('Consumers', pipe, item.consumers);
  }

  function showPipe({item}) {
    add(panel, 'p', item.facts);
    addFindings(item.findings);
    for (const set of [...item.executors, ...item.links]) {
      addOptions(set.key, set.options);
    }
  }

  const details = {node: showNode, stream: showStream, pipe: showPipe};

  // The ids that are highlighted with a thing: with a node, its streams and their
  // other ends.
  function litWith(id) {
    const {kind, item} = things.get(id);
    const ids = new Set([id]);
    const streams = kind === 'stream' ? [item] :
        kind === 'node' ? [...item.inputs, ...item.outputs].map((end) => things.get(end.id).item) :
        [];
    for (const stream of streams) {
      ids.add(stream.id);
      for (const end of [...stream.producers, ...stream.consumers]) {
        ids.add(end.id);
      }
    }
    return ids;
  }

  function deselect() {
    panel.hidden = true;
    svg.classList.remove('ui-focus');
    for (const element of svg.querySelectorAll('.ui-lit, .ui-selected')) {
      element.classList.remove('ui-lit', 'ui-selected');
    }
    show();
  }

  function select(id, moves) {
    deselect();
    const thing = things.get(id);
    panel.replaceChildren();
    addButton(panel, 'Close', deselect).id = 'ui-close';
    add(panel, 'h2', thing.title);
    details[thing.kind](thing);
    panel.hidden = false;
    panel.scrollTop = 0;
    show();
    const own = elements.get(id) || [];
    own.forEach((element) => element.classList.add('ui-selected'));
    if (thing.kind !== 'pipe') {
      svg.classList.add('ui-focus');
      for (const lit of litWith(id)) {
        (elements.get(lit) || []).forEach((element) => element.classList.add('ui-lit'));
      }
    }
    if (thing.kind !== 'pipe' && own.length > 0) {
      (moves ? goTo : reveal)(own[0]);
    }
  }

  stage.addEventListener('click', (event) => {
    const id = moved ? '' : thingAt(event.target);
    if (id) {
      select(id, false);
    } else if (!moved) {
      deselect();
    }
  });

  // The tab key moves from node to node.
  for (const [id, thing] of things) {
    if (thing.kind !== 'node') {
      continue;
    }
    for (const element of elements.get(id) || []) {
      element.setAttribute('tabindex', '0');
      element.setAttribute('role', 'button');
      element.setAttribute('aria-label', `${thing.item.key} ${thing.title}`);
      element.addEventListener('keydown', (event) => {
        if (event.key === 'Enter' || event.key === ' ') {
          event.preventDefault();
          select(id, false);
        }
      });
    }
  }

  // ---- Search --------------------------------------------------------------

  const MAX_RESULTS = 50;
  const all = [...things].filter(([, thing]) => thing.kind !== 'pipe').map(([id, thing]) =>
      ({id, thing, text: `${thing.title} ${thing.detail}`.toLowerCase()}));

  function find() {
    const words = search.value.toLowerCase().split(/\s+/).filter(Boolean);
    const found = words.length === 0 ? [] :
        all.filter(({text}) => words.every((word) => text.includes(word)));
    results.replaceChildren();
    for (const {id, thing} of found.slice(0, MAX_RESULTS)) {
      const button = addButton(add(results, 'li'), thing.title, () => {
        results.hidden = true;
        select(id, true);
      });
      add(button, 'small', ` ${thing.detail}`);
    }
    if (words.length > 0 && found.length !== Math.min(found.length, MAX_RESULTS)) {
      add(results, 'li', `and ${found.length - MAX_RESULTS} more`);
    }
    if (words.length > 0 && found.length === 0) {
      add(results, 'li', 'no results');
    }
    results.hidden = words.length === 0;
  }

  search.addEventListener('input', find);
  search.addEventListener('focus', find);
  search.addEventListener('keydown', (event) => {
    const first = results.querySelector('button');
    if (event.key === 'Enter' && first) {
      first.click();
    } else if (event.key === 'ArrowDown' && first) {
      event.preventDefault();
      first.focus();
    } else if (event.key === 'Escape') {
      search.value = '';
      find();
    }
  });
  results.addEventListener('keydown', (event) => {
    const step = {ArrowDown: 1, ArrowUp: -1}[event.key];
    if (step) {
      event.preventDefault();
      const buttons = [...results.querySelectorAll('button')];
      const next = buttons[buttons.indexOf(document.activeElement) + step];
      (next || search).focus();
    }
  });
  document.addEventListener('pointerdown', (event) => {
    if (!event.target.closest('#ui-find')) {
      results.hidden = true;
    }
  });

  // ---- Buttons and keys ----------------------------------------------------

  document.getElementById('ui-in').addEventListener('click', () => zoom(1 / 1.3));
  document.getElementById('ui-out').addEventListener('click', () => zoom(1.3));
  document.getElementById('ui-fit').addEventListener('click', () => fit());

  const themes = ['auto', 'light', 'dark'];
  const theme = document.getElementById('ui-theme');
  theme.addEventListener('click', () => {
    const next = themes[(themes.indexOf(root.dataset.theme) + 1) % themes.length];
    root.dataset.theme = next;
    theme.textContent = `Theme: ${next}`;
  });

  const keys = {
    '+': () => zoom(1 / 1.3),
    '=': () => zoom(1 / 1.3),
    '-': () => zoom(1.3),
    '0': () => fit(),
    '/': () => search.focus(),
    Escape: deselect,
    ArrowLeft: () => pan(60, 0),
    ArrowRight: () => pan(-60, 0),
    ArrowUp: () => pan(0, 60),
    ArrowDown: () => pan(0, -60),
  };
  document.addEventListener('keydown', (event) => {
    const isTyping = event.target.closest('#ui-find, #ui-panel');
    if (!isTyping && !event.ctrlKey && !event.metaKey && !event.altKey && keys[event.key]) {
      event.preventDefault();
      keys[event.key]();
    }
  });

  window.addEventListener('resize', () => (fitted ? fit() : show()));

  const own = data.findings;
  if (own.length > 0) {
    add(panel, 'h2', data.title);
    addFindings(own);
    panel.hidden = false;
  }
  fit(READABLE);
})();
