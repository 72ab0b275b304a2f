// The settings pane of the package. A change is what the pane does on a phone, said as statements: the file
// is written, then the notification is posted.

export function makeSettings(panel, connection) {
  panel.innerHTML = '<div class="cells"></div>';
  const cells = panel.querySelector('.cells');
  let shown = false;

  const change = (cell, value) => {
    connection.say(`setting ${cell.key} ${JSON.stringify(value)}`);
    if (cell.notification) connection.say(`darwin ${cell.notification}`);
  };

  const toggle = (cell) => {
    const label = document.createElement('label');
    label.className = 'cell';
    const box = Object.assign(document.createElement('input'), {
      type: 'checkbox', name: cell.key, checked: cell.value === true, role: 'switch' });
    box.addEventListener('change', () => change(cell, box.checked));
    label.append(cell.label, box);
    return label;
  };

  const choice = (cell) => {
    const label = document.createElement('label');
    label.className = 'cell';
    const select = Object.assign(document.createElement('select'), { name: cell.key });
    cell.values.forEach((value, index) => select.add(new Option(cell.titles[index], index, false, value === cell.value)));
    select.addEventListener('change', () => change(cell, cell.values[select.value]));
    label.append(cell.label, select);
    return label;
  };

  const text = (name, className, words) =>
    Object.assign(document.createElement(name), { className, textContent: words });

  const show = async () => {
    if (!shown || !connection.isOpen) return;
    const list = await connection.ask({ do: 'settings' });
    const focused = document.activeElement?.name;
    cells.replaceChildren();
    let footer = '';
    const endGroup = () => {
      if (footer) cells.append(text('p', 'hint', footer));
    };
    for (const cell of list) {
      if (cell.kind === 'group') {
        endGroup();
        footer = cell.footer ?? '';
        if (cell.label) cells.append(text('h3', '', cell.label));
      } else if (cell.kind === 'switch') {
        cells.append(toggle(cell));
      } else if (cell.kind === 'choice') {
        cells.append(choice(cell));
      }
    }
    endGroup();
    if (focused) cells.querySelector(`[name="${CSS.escape(focused)}"]`)?.focus();
  };

  connection.addEventListener('open', () => show().catch(() => {}));
  // Someone else, or a statement, may have changed one.
  connection.addEventListener('event', ({ detail }) => {
    if (detail.line?.startsWith('setting ')) show().catch(() => {});
  });
  return (isShown) => {
    shown = isShown;
    show().catch(() => {});
  };
}
