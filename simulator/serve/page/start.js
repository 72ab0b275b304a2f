// Which phone it is, and the choice of another one.

export function makeStart(form, connection) {
  const { device, system } = form.elements;
  const model = document.getElementById('model');
  let shown = '';

  const fill = (select, names) =>
    select.replaceChildren(...names.map((name) => new Option(name, name)));

  connection.addEventListener('hello', ({ detail }) => {
    fill(device, detail.devices);
    fill(system, detail.systems);
    shown = '';
  });
  connection.addEventListener('state', ({ detail }) => {
    const now = `${detail.device}, ${detail.system}${detail.real ? ', real' : ''}`;
    if (now === shown) return;
    shown = now;
    model.textContent = now;
    document.title = `Vantori: ${now}`;
    for (const [select, name] of [[device, detail.device], [system, detail.system]]) {
      if (![...select.options].some((option) => option.value === name)) select.add(new Option(name, name));
      select.value = name;
    }
  });
  form.addEventListener('submit', (event) => {
    event.preventDefault();
    connection.send({ do: 'start', device: device.value, system: system.value });
  });
}
