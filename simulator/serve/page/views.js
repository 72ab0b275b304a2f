// The views on the screen: a tree beside the phone. Pointing at the phone finds the row, pointing at a row
// shows the place on the phone; the exploded view has each layer by itself, one above the other.

import { makeLayers } from './layers.js';

const visible = (view) => !view.hidden;
const contains = ([x, y, width, height], place) =>
  place.x >= x && place.y >= y && place.x < x + width && place.y < y + height;

// The frontmost view that shows something there; failing that, the frontmost that is there.
function viewAt(views, place) {
  let found = null;
  let drawn = null;
  const look = (view) => {
    if (!visible(view)) return;
    if (contains(view.frame, place)) {
      found = view;
      if (view.draws) drawn = view;
    }
    view.children.forEach(look);
  };
  views.forEach(look);
  return drawn ?? found;
}

export function makeViews(panel, connection, screen, finger, mark) {
  panel.innerHTML = `
    <div class="row"><button type="button" name="refresh">Refresh</button>
      <button type="button" name="pick" aria-pressed="false">Point at the phone</button>
      <button type="button" name="explode" aria-pressed="false">Exploded</button>
      <label>Find <input name="find" autocomplete="off" spellcheck="false" placeholder="class or text"></label></div>
    <div class="split"><ul class="tree" role="tree" aria-label="Views"></ul>
      <div class="layers" hidden></div></div>
    <dl class="facts"></dl>`;
  const tree = panel.querySelector('.tree');
  const facts = panel.querySelector('.facts');
  const [refresh, pick, explode] = panel.querySelectorAll('button');
  const find = panel.querySelector('[name=find]');
  const layers = makeLayers(panel.querySelector('.layers'), connection, screen);
  const rows = new Map(); // by view
  let views = [];
  let chosen = null;
  let shown = false;

  const markOnPhone = (view) => {
    mark.classList.toggle('shown', view !== null);
    if (!view) return;
    const { width, height } = screen.size;
    const [x, y, w, h] = view.frame;
    mark.style.left = `${(x / width) * 100}%`;
    mark.style.top = `${(y / height) * 100}%`;
    mark.style.width = `${(w / width) * 100}%`;
    mark.style.height = `${(h / height) * 100}%`;
  };

  const tell = (view) => {
    const [x, y, w, h] = view.frame;
    const lines = [
      ['Class', view.class],
      ['Frame on screen', `${x}, ${y}, ${w} by ${h}`],
      ['Owner', view.owner ?? 'none'],
      ['Alpha', view.hidden ? `${view.alpha}, hidden` : view.alpha],
      ...(view.text ? [['Text', view.text]] : []),
    ];
    facts.replaceChildren(...lines.flatMap(([term, value]) => [
      Object.assign(document.createElement('dt'), { textContent: term }),
      Object.assign(document.createElement('dd'), { textContent: value }),
    ]));
  };

  const choose = (view, { scroll = false, focus = false } = {}) => {
    rows.get(chosen)?.setAttribute('aria-selected', 'false');
    rows.get(chosen)?.setAttribute('tabindex', '-1');
    chosen = view;
    markOnPhone(view);
    if (!view) return;
    const row = rows.get(view);
    row.setAttribute('aria-selected', 'true');
    row.setAttribute('tabindex', '0');
    for (let item = row.parentElement.closest('ul')?.closest('li'); item; item = item.parentElement.closest('li'))
      fold(item, false);
    if (scroll) row.scrollIntoView({ block: 'nearest' });
    if (focus) row.focus();
    tell(view);
  };

  const fold = (item, folded) => {
    const list = item.querySelector(':scope > ul');
    if (!list) return;
    list.hidden = folded;
    item.firstElementChild.setAttribute('aria-expanded', !folded);
  };

  const makeRow = (view) => {
    const item = document.createElement('li');
    item.role = 'none';
    const row = document.createElement('div');
    row.role = 'treeitem';
    row.tabIndex = -1;
    row.className = [view.hidden && 'hidden-view', view.library && 'library'].filter(Boolean).join(' ');
    row.textContent = view.class + (view.text ? ` “${view.text}”` : '');
    row.addEventListener('click', () => choose(view));
    row.addEventListener('pointerenter', () => markOnPhone(view));
    row.addEventListener('pointerleave', () => markOnPhone(chosen));
    row.addEventListener('focus', () => chosen !== view && choose(view));
    item.append(row);
    rows.set(view, row);
    if (view.children.length > 0) {
      const list = document.createElement('ul');
      list.setAttribute('role', 'group');
      list.append(...view.children.map(makeRow));
      item.append(list);
      fold(item, false);
      row.addEventListener('dblclick', () => fold(item, !list.hidden));
    }
    return item;
  };

  const load = async () => {
    if (!shown) return;
    const place = chosen && [chosen.class, ...chosen.frame].join();
    views = await connection.ask({ do: 'views' });
    rows.clear();
    chosen = null;
    tree.replaceChildren(...views.map(makeRow));
    const same = place && [...rows.keys()].find((view) => [view.class, ...view.frame].join() === place);
    choose(same || null);
    if (!same) tree.querySelector('[role=treeitem]')?.setAttribute('tabindex', '0');
    filter();
    if (explode.getAttribute('aria-pressed') === 'true') await layers.load();
  };

  const filter = () => {
    const wanted = find.value.toLowerCase();
    for (const row of rows.values())
      row.classList.toggle('found', wanted !== '' && row.textContent.toLowerCase().includes(wanted));
    tree.querySelector('.found')?.scrollIntoView({ block: 'nearest' });
  };

  const press = (button, pressed) => button.setAttribute('aria-pressed', pressed);

  const stopPicking = () => {
    press(pick, false);
    finger.pick(null);
  };
  pick.addEventListener('click', async () => {
    if (pick.getAttribute('aria-pressed') === 'true') return stopPicking();
    await load();
    press(pick, true);
    finger.pick({
      over: (place) => markOnPhone(place ? viewAt(views, place) : chosen),
      chosen: (place) => {
        choose(viewAt(views, place), { scroll: true });
        stopPicking();
      },
    });
  });
  explode.addEventListener('click', async () => {
    const on = explode.getAttribute('aria-pressed') !== 'true';
    press(explode, on);
    panel.querySelector('.layers').hidden = !on;
    if (on) await layers.load();
  });
  refresh.addEventListener('click', () => load().catch(() => {}));
  find.addEventListener('input', filter);

  tree.addEventListener('keydown', (event) => {
    const list = [...tree.querySelectorAll('[role=treeitem]')].filter((row) => row.offsetParent !== null);
    const now = list.indexOf(document.activeElement);
    const item = document.activeElement.closest('li');
    const move = { ArrowDown: 1, ArrowUp: -1 }[event.key];
    if (move) list[Math.min(Math.max(now + move, 0), list.length - 1)]?.focus();
    else if (event.key === 'ArrowLeft' && item.querySelector(':scope > ul:not([hidden])')) fold(item, true);
    else if (event.key === 'ArrowLeft') item.parentElement.closest('li')?.querySelector('[role=treeitem]').focus();
    else if (event.key === 'ArrowRight') fold(item, false);
    else return;
    event.preventDefault();
  });

  connection.addEventListener('open', () => load().catch(() => {}));
  return (isShown) => {
    shown = isShown;
    if (isShown) load().catch(() => {});
    else {
      stopPicking();
      markOnPhone(null);
    }
  };
}
